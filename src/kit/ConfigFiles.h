#pragma once

#include "base/Literals.h"

#include <QString>
#include <QStringList>

#include <optional>

/// The configuration files of an installation, in the places and forms in which every program of the ERP reads them.
namespace vorta::kit {

/// Where the parts of an installation stand below its home, which is absolute and has no separator at its end.
struct Layout {
    explicit Layout(const QString& home);
    QString home;

    QString config(const QString& file) const { return home + u"/config/"_s + file; }
    QString bases() const { return home + u"/base/"_s; }
    QString base(const QString& name) const { return bases() + name + u".fdb"_s; }
    QString images() const { return home + u"/imagens/"_s; }
    QString largeImages() const { return home + u"/imagens/detalhe/"_s; }
    QString pages() const { return home + u"/paginas/"_s; }
};

/// An environment of the register: its line of "server.ini" and the name of its database file.
struct Environment {
    QString name;
    QString base;
};
const QList<Environment>& Environments();
inline QString PostalCodeBase() {
    return u"cep"_s;
}

/// Pictures that the screens ask for by name, and what a product picture's name ends in.
inline QString LinkedPicture() {
    return u"comvinculo.bmp"_s;
}
inline QString UnlinkedPicture() {
    return u"semvinculo.bmp"_s;
}
inline QString NoPhotoPicture() {
    return u"semfoto.bmp"_s;
}
inline QString PictureSuffix() {
    return u".bmp"_s;
}

/// Writes the four configuration files for embedded databases; 75 when one cannot be written. "server.ini" and
/// "server_cep.ini" can hold a password and are readable by their owner and group only.
void WriteConfigFiles(const Layout& layout);

/// The lines of a configuration file, UTF-8 or Windows-1252; nothing when it cannot be read.
std::optional<QStringList> LinesOf(const QString& path);

} // namespace vorta::kit
