#pragma once

#include <QString>
#include <QStringList>

#include <optional>

/// The configuration files of an installation, in the places and forms in which every program of the ERP reads them.
namespace vorta::kit {

/// Where the parts of an installation stand below its home, which is absolute and has no separator at its end.
struct Layout {
    explicit Layout(const QString& home);
    QString home;

    QString config(const QString& file) const { return home + QStringLiteral("/config/") + file; }
    QString bases() const { return home + QStringLiteral("/base/"); }
    QString base(const QString& name) const { return bases() + name + QStringLiteral(".fdb"); }
    QString images() const { return home + QStringLiteral("/imagens/"); }
    QString largeImages() const { return home + QStringLiteral("/imagens/detalhe/"); }
    QString pages() const { return home + QStringLiteral("/paginas/"); }
};

/// An environment of the register: its line of "server.ini" and the name of its database file.
struct Environment {
    QString name;
    QString base;
};
const QList<Environment>& Environments();
inline QString PostalCodeBase() {
    return QStringLiteral("cep");
}

/// Pictures that the screens ask for by name, and what a product picture's name ends in.
inline QString LinkedPicture() {
    return QStringLiteral("comvinculo.bmp");
}
inline QString UnlinkedPicture() {
    return QStringLiteral("semvinculo.bmp");
}
inline QString NoPhotoPicture() {
    return QStringLiteral("semfoto.bmp");
}
inline QString PictureSuffix() {
    return QStringLiteral(".bmp");
}

/// Writes the four configuration files for embedded databases; 75 when one cannot be written. "server.ini" and
/// "server_cep.ini" can hold a password and are readable by their owner and group only.
void WriteConfigFiles(const Layout& layout);

/// The fields of a configuration line; a field that is not there is missing.
QStringList FieldsOf(const QString& line);
/// A line of "server.ini" or "server_cep.ini" taken apart.
struct ServerLine {
    explicit ServerLine(const QString& line);
    QString server;
    QString engine;     ///< the tag as written; an empty one means SQL Server
    QString connection; ///< Firebird's own connection string
    QString keepsAccents;
    bool complete = false; ///< all seven fields are there
    bool isFirebird() const { return engine == QStringLiteral("FIREBIRD"); }
};
/// The lines of a configuration file, UTF-8 or Windows-1252; nothing when it cannot be read.
std::optional<QStringList> LinesOf(const QString& path);

} // namespace vorta::kit
