#include "kit/ConfigFiles.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "kit/Loader.h"
#include "kit/Relocate.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace vorta::kit {

namespace {

/// The file system refuses a path, as the programs of the ERP number it.
constexpr int pathRefused = 75;

constexpr QFile::Permissions ownerAndGroup = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
constexpr QFile::Permissions everybodyReads = ownerAndGroup | QFile::ReadOther;

void writeFile(const QString& path, const QString& text, QFile::Permissions permissions) {
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.setPermissions(permissions) &&
                         file.write(bytes) == bytes.size() && file.flush();
    if (!written)
        throw RuntimeError(pathRefused, u"Não foi possível gravar %1: %2"_s.arg(path, file.errorString()));
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

QStringList FieldsOf(const QString& line) {
    QStringList fields = line.split(u'^');
    if (fields.last().isEmpty())
        fields.removeLast();
    return fields;
}

std::optional<QStringList> LinesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8.decode(bytes);
    if (utf8.hasError())
        text = FromWindows1252(bytes);
    text.remove(u'\r');
    return text.split(u'\n');
}

ServerLine::ServerLine(const QString& line) {
    constexpr qsizetype allFields = 7;
    const QStringList fields = FieldsOf(line.trimmed());
    server = fields.value(0);
    engine = fields.value(4);
    connection = fields.value(5);
    keepsAccents = fields.value(6);
    complete = fields.size() >= allFields;
}

void Relocate(const QString& given) {
    const Layout layout(given);
    const std::optional<QStringList> root = LinesOf(layout.config(u"server_aplic.ini"_s));
    if (!root)
        throw RuntimeError(errorNumber::FileNotFound, u"%1 não contém uma instalação"_s.arg(layout.home));
    const QStringList fields = FieldsOf(root->value(0));
    const QString old = QDir::cleanPath(fields.value(0).trimmed() + fields.value(1).trimmed());
    if (old.isEmpty() || old == layout.home)
        return;
    for (const char* name : {"server_aplic.ini", "server.ini", "server_cep.ini", "paths.ini"}) {
        const QString path = layout.config(QString::fromLatin1(name));
        if (const std::optional<QStringList> lines = LinesOf(path))
            writeFile(path, moved(lines->join(u'\n'), old, layout.home), QFile::permissions(path));
    }
}

} // namespace vorta::kit
