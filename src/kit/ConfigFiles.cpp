#include "kit/ConfigFiles.h"

#include "base/CampoDelimitado.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "kit/Relocate.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vorta::kit {

namespace {

constexpr QFile::Permissions ownerAndGroup = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
constexpr QFile::Permissions everybodyReads = ownerAndGroup | QFile::ReadOther;

void writeFile(const QString& path, const QString& text, QFile::Permissions permissions) {
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.setPermissions(permissions) &&
                         file.write(bytes) == bytes.size() && file.flush();
    if (!written)
        throw RuntimeError(errorNumber::PathRefused, u"Não foi possível gravar %1: %2"_s.arg(path, file.errorString()));
}

QString serverLine(const Layout& layout, const QString& base) {
    return u"LOCAL^%1^SYSDBA^^FIREBIRD^database=%2;user=SYSDBA^False^\n"_s.arg(base, layout.base(base));
}

QString pathsLine(const Layout& layout) {
    const QStringList fields{{},
                             {},
                             layout.images(),
                             layout.largeImages(),
                             PictureSuffix(),
                             PictureSuffix(),
                             layout.images() + NoPhotoPicture(),
                             {},
                             {},
                             layout.pages(),
                             {},
                             {}};
    return fields.join(u'^') + u"^\n"_s;
}

/// The text of the file with its old home replaced, wherever a path begins with it.
QString moved(QString text, const QString& from, const QString& to) {
    for (const QString& before : {u"^"_s, u"="_s, u":"_s})
        text.replace(before + from + u'/', before + to + u'/');
    if (text.startsWith(from + u'/'))
        text.replace(0, from.size(), to);
    return text;
}

} // namespace

Layout::Layout(const QString& given) : home(QDir::cleanPath(QDir(given).absolutePath())) {}

const QList<Environment>& Environments() {
    static const QList<Environment> all{
        {u"PRD"_s, u"pessoas"_s}, {u"HIST"_s, u"historico"_s}, {u"DEV"_s, u"desenvolvimento"_s}};
    return all;
}

void WriteConfigFiles(const Layout& layout) {
    QString servers;
    for (const Environment& environment : Environments())
        servers += serverLine(layout, environment.base);
    writeFile(layout.config(u"server_aplic.ini"_s), layout.home + u"/^^\n"_s, everybodyReads);
    writeFile(layout.config(u"server.ini"_s), servers, ownerAndGroup);
    writeFile(layout.config(u"server_cep.ini"_s), serverLine(layout, PostalCodeBase()), ownerAndGroup);
    writeFile(layout.config(u"paths.ini"_s), pathsLine(layout), everybodyReads);
}

std::optional<QStringList> LinesOf(const QString& path) {
    QFile file(path);
    // Reading a pipe or a device may never end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return DecodedText(file.readAll()).remove(u'\r').split(u'\n');
}

void Relocate(const QString& given) {
    const Layout layout(given);
    const std::optional<QStringList> root = LinesOf(layout.config(u"server_aplic.ini"_s));
    if (!root)
        throw RuntimeError(errorNumber::FileNotFound, u"%1 não contém uma instalação"_s.arg(layout.home));
    const QString line = root->value(0).trimmed();
    const QString old = QDir::cleanPath(CampoDaLinha(line, 1).trimmed() + CampoDaLinha(line, 2).trimmed());
    if (line.isEmpty() || old.isEmpty() || old == layout.home)
        return;
    for (const char* name : {"server_aplic.ini", "server.ini", "server_cep.ini", "paths.ini"}) {
        const QString path = layout.config(QString::fromLatin1(name));
        if (const std::optional<QStringList> lines = LinesOf(path))
            writeFile(path, moved(lines->join(u'\n'), old, layout.home), QFile::permissions(path));
    }
}

} // namespace vorta::kit
