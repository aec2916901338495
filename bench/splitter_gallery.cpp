// A window of splitters to play with:
//
//     splitter_gallery

#include "bench/splitter_window.h"
#include "framework/windows/application.h"
#include "framework/windows/windows.h"
#include "platform/qt/qt_platform.h"

int main(int argc, char** argv) {
    bracken::Application application;
    bracken::QtPlatform platform(argc, argv);
    return platform.run([] { bracken::Windows::get().instance<bracken::SplitterWindow>(); });
}
