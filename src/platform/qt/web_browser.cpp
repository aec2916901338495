#include "platform/qt/web_browser.h"

#include <gio/gio.h>

#include <QDesktopServices>
#include <QFile>
#include <QUrl>
#include <memory>

namespace bracken {

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};

bool startBrowser(const std::string& path) {
    const std::unique_ptr<GAppInfo, Unref> browser(g_app_info_get_default_for_uri_scheme("https"));
    if (browser == nullptr) return false;
    const std::unique_ptr<GFile, Unref> file(g_file_new_for_path(path.c_str()));
    GList files{file.get(), nullptr, nullptr};
    return g_app_info_launch(browser.get(), &files, nullptr, nullptr) != 0;
}

}  // namespace

void openInBrowser(const std::string& path) {
    if (startBrowser(path)) return;
    const QString name = QFile::decodeName(QByteArray::fromStdString(path));
    QDesktopServices::openUrl(QUrl::fromLocalFile(name));
}

}  // namespace bracken
