#include "platform/qt/web_browser.h"

#include <unistd.h>

#include <QDir>
#include <QFile>

#include "tests/platform_qt/qt_test.h"

namespace bracken {
namespace {

using namespace Qt::StringLiterals;

void write(const QString& path, const QString& text) {
    QDir().mkpath(path.section(u'/', 0, -2));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text.toUtf8());
}

QString read(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

struct BrowserCase {
    const char* name;
    // Files below the folder that stands for the data places; "=" in front: below the settings.
    QList<std::pair<QString, QString>> files;
    // What the browser is called with.
    QString words;
};

// A program that writes down its arguments, under a name.
QString entry(const QString& exec, const QString& more = {}) {
    return QStringLiteral("[Other]\nExec=wrong\n[Desktop Entry]\n%1Exec=%2\n[Action]\nExec=wrong\n")
        .arg(more, exec);
}

const QString handler = QStringLiteral("x-scheme-handler/https=");
const QString list =
    QStringLiteral("[Default Applications]\ntext/html=editor.desktop;\n") + handler;
const QString cache = QStringLiteral("[MIME Cache]\n") + handler;

const BrowserCase cases[] = {
    {"TheUsersChoice",
     {{u"=mimeapps.list"_s, list + u"a.desktop;\n"_s},
      {u"applications/mimeinfo.cache"_s, cache + u"b.desktop;\n"_s},
      {u"applications/a.desktop"_s, entry(u"record a %u --x%%y %i"_s)},
      {u"applications/b.desktop"_s, entry(u"record b %u"_s)}},
     u"a file:///tmp/a%20b.html --x%y"_s},
    {"SkipsWhatIsNotThereOrNeedsATerminal",
     {{u"=mimeapps.list"_s, list + u"gone.desktop;term.desktop;c-d.desktop\n"_s},
      {u"applications/term.desktop"_s, entry(u"record term %u"_s, u"Terminal=true\n"_s)},
      {u"applications/c/d.desktop"_s, entry(u"record \"c d\" %F"_s)}},
     u"c d /tmp/a b.html"_s},
    {"WhatIsInstalled",
     {{u"applications/mimeinfo.cache"_s, cache + u"b.desktop;\n"_s},
      {u"applications/b.desktop"_s, entry(u"record b %f"_s)}},
     u"b /tmp/a b.html"_s}};

class WebBrowser : public test::QtTest {};

TEST_F(WebBrowser, IsLookedUpInTheDesktopsLists) {
    QString root = QDir::tempPath() + QStringLiteral("/browser-%1/").arg(getpid());
    for (const BrowserCase& one : cases) {
        SCOPED_TRACE(one.name);
        QDir(root).removeRecursively();
        write(root + u"record"_s, QStringLiteral("#!/bin/sh\nprintf '%s' \"$*\" >") + root +
                                      u"new && mv "_s + root + u"new "_s + root + u"called\n"_s);
        QFile::setPermissions(root + u"record"_s, QFile::ReadOwner | QFile::ExeOwner);
        qputenv("XDG_CONFIG_HOME", (root + u"config"_s).toUtf8());
        qputenv("XDG_CONFIG_DIRS", (root + u"none"_s).toUtf8());
        qputenv("XDG_DATA_HOME", (root + u"data"_s).toUtf8());
        qputenv("XDG_DATA_DIRS", (root + u"none"_s).toUtf8());
        for (auto [path, text] : one.files) {
            QString place = path.startsWith(u'=') ? u"config/"_s + path.mid(1) : u"data/"_s + path;
            write(root + place, text.replace(u"Exec=record"_s, u"Exec="_s + root + u"record"_s));
        }
        openInBrowser(QStringLiteral("/tmp/a b.html"));
        waitFor([&] { return QFile::exists(root + u"called"_s); });
        EXPECT_EQ(read(root + u"called"_s).toStdString(), one.words.toStdString());
    }
    QDir(root).removeRecursively();
}

}  // namespace
}  // namespace bracken
