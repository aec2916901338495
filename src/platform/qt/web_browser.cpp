#include "platform/qt/web_browser.h"

#include <QDesktopServices>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QUrl>

namespace bracken {

namespace {

using Places = QStandardPaths;

// The value of a key in a group of a desktop file or a list of handlers; empty if it has none.
QString valueIn(const QString& path, QStringView group, QStringView key) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
    bool inGroup = false;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.startsWith(u'[')) inGroup = QStringView(line).trimmed() == group;
        qsizetype equals = line.indexOf(u'=');
        if (inGroup && equals > 0 && QStringView(line).left(equals).trimmed() == key)
            return line.mid(equals + 1).trimmed();
    }
    return {};
}

struct HandlerList {
    QStringList files;
    QString group;
};

// The lists of handlers, the most telling first: what the user and the system have chosen, then
// what the installed programs offer.
QList<HandlerList> handlerLists() {
    QStringList names{QStringLiteral("mimeapps.list")};
    for (const QString& desktop : qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':'))
        if (!desktop.isEmpty())
            names.insert(names.size() - 1, desktop.toLower() + u'-' + names.last());
    QStringList chosen;
    for (auto place : {Places::GenericConfigLocation, Places::ApplicationsLocation})
        for (const QString& folder : Places::standardLocations(place))
            for (const QString& name : names) chosen += folder + u'/' + name;
    QStringList offered =
        Places::locateAll(Places::ApplicationsLocation, QStringLiteral("mimeinfo.cache"));
    return {{chosen, QStringLiteral("[Default Applications]")},
            {chosen, QStringLiteral("[Added Associations]")},
            {offered, QStringLiteral("[MIME Cache]")}};
}

// The desktop file of that name. A name in a sub-folder has a dash for the slash.
QString desktopFile(QString name) {
    QString path = Places::locate(Places::ApplicationsLocation, name);
    qsizetype dash = name.indexOf(u'-');
    if (!path.isEmpty() || dash < 0) return path;
    return Places::locate(Places::ApplicationsLocation, name.replace(dash, 1, u'/'));
}

// The command line of a desktop file, without a terminal of its own only.
QString commandIn(const QString& file) {
    const QStringView entry = u"[Desktop Entry]";
    if (valueIn(file, entry, u"Terminal") == u"true") return {};
    return valueIn(file, entry, u"Exec");
}

QString browserCommand() {
    for (const HandlerList& list : handlerLists())
        for (const QString& file : list.files)
            for (const QString& name :
                 valueIn(file, list.group, u"x-scheme-handler/https").split(u';')) {
                QString command = name.isEmpty() ? QString() : commandIn(desktopFile(name));
                if (!command.isEmpty()) return command;
            }
    return {};
}

// What a field code of a command line stands for; nothing for those that say nothing of the file.
QString meaning(QChar code, const QString& path) {
    if (code == u'%') return code;
    if (code == u'f' || code == u'F') return path;
    if (code == u'u' || code == u'U')
        return QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    return {};
}

QString filled(const QString& word, const QString& path) {
    QString text;
    for (qsizetype i = 0; i < word.size(); i++) {
        bool isCode = word[i] == u'%' && i + 1 < word.size();
        text += isCode ? meaning(word[++i], path) : word[i];
    }
    return text;
}

bool start(const QString& command, const QString& path) {
    QStringList words;
    for (const QString& word : QProcess::splitCommand(command))
        if (QString text = filled(word, path); !text.isEmpty()) words += text;
    if (words.isEmpty()) return false;
    QString program = words.takeFirst();
    return QProcess::startDetached(program, words);
}

}  // namespace

void openInBrowser(const QString& path) {
    if (!start(browserCommand(), path)) QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}  // namespace bracken
