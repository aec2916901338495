// How long a file takes to be shown with its marks, by size and by number of occurrences; prints
// one line of JSON for each pair. Needs no screen unless QT_QPA_PLATFORM names one.
//
//     view_script_bench

#include <QApplication>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "framework/controls/edit_field.h"
#include "framework/text/text.h"
#include "framework/windows/application.h"
#include "framework/windows/windows.h"
#include "platform/qt/qt_platform.h"

namespace {

using namespace bracken;
using Clock = std::chrono::steady_clock;

class Reader : public Window {
  public:
    EditField field{*this, "field"};

  protected:
    void Layout() override {
        Width = 798;
        Height = 640;
        MenuBarVisible = false;
    }
    void CreateControls() override {
        field.place(9, 149, 769, 445);
        field.MultiLine = field.Styled = field.ScrollBarVertical = true;
    }
};

std::string script(int megabytes, int occurrences, bool lines) {
    std::string text(static_cast<size_t>(megabytes) * 1000000, 'x');
    for (size_t at = 60; lines && at < text.size(); at += 60) text[at] = '\n';
    size_t step = text.size() / static_cast<size_t>(occurrences);
    for (int i = 0; i < occurrences; ++i)
        text.replace(static_cast<size_t>(i) * step + 2, 4, "user");
    return text;
}

void mark(EditField& field) {
    for (int64_t at = InStr(0, field.Text.get(), "user"); at > 0;
         at = InStr(at + 1, field.Text.get(), "user")) {
        field.SelStart = static_cast<int>(at - 1);
        field.SelLength = 4;
        field.SelBold = true;
        field.SelOutline = true;
        field.SelTextColor = RGB(0xff, 0, 0);
    }
}

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

QPlainTextEdit& editor() {
    for (QWidget* widget : QApplication::allWidgets())
        if (auto* found = qobject_cast<QPlainTextEdit*>(widget)) return *found;
    std::abort();
}

void measure(Reader& reader, int megabytes, int occurrences, bool lines) {
    std::string text = script(megabytes, occurrences, lines);
    reader.field.Text = "";
    while (!editor().document()->isEmpty()) QApplication::processEvents();
    auto start = Clock::now();
    reader.field.Text = text;
    mark(reader.field);
    double model = millisecondsSince(start);
    while (editor().document()->isEmpty()) QApplication::processEvents();
    editor().repaint();
    double open = millisecondsSince(start);
    double slowest = 0;
    QScrollBar& bar = *editor().verticalScrollBar();
    for (int i = 0; i < 200; ++i) {
        auto page = Clock::now();
        bar.setValue(bar.maximum() / 200 * i);
        editor().viewport()->repaint();
        slowest = std::max(slowest, millisecondsSince(page));
    }
    std::printf(
        "{\"bench\": \"view_script\", \"megabytes\": %d, \"occurrences\": %d, \"lines\": %s, "
        "\"model_ms\": %.0f, \"open_ms\": %.0f, \"slowest_scroll_ms\": %.1f}\n",
        megabytes, occurrences, lines ? "true" : "false", model, open, slowest);
}

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    Application application;
    QtPlatform platform(argc, argv);
    return platform.run([&platform] {
        Reader& reader = Windows::get().instance<Reader>();
        while (QApplication::allWidgets().size() < 3) QApplication::processEvents();
        for (auto [megabytes, occurrences] :
             {std::pair{5, 50000}, {10, 50000}, {10, 100000}, {10, 200000}, {20, 100000}})
            measure(reader, megabytes, occurrences, true);
        measure(reader, 10, 100000, false);
        platform.exitLoop(0);
    });
}
