#pragma once

#include "kit/Loader.h"
#include "kit/Progress.h"

/// Streets with their postal codes, from a plain list into the four tables of the postal-code database (see
/// docs/cep.md).
namespace vorta::kit {

/// One street of a list.
struct Street {
    QByteArray cep; ///< eight digits
    QByteArray type;
    QByteArray abbreviation;
    QByteArray name;
    QByteArray district;
    QByteArray town;
    QByteArray state;
};

/// What is wrong with a list: the first mistakes, each with the number of its line, in words for the one who keeps the
/// list.
struct ListMistakes {
    QStringList lines;
    qint64 all = 0;
};

/// Reads a list, UTF-8 or Windows-1252; 53 when the file cannot be read. With any mistake the streets are of no use.
std::vector<Street> ReadStreets(const QString& path, ListMistakes& mistakes, const Progress& progress = {});
/// The streets that come with the program.
std::vector<Street> SampleStreets();

/// Puts the streets in place of whatever the four tables held; nothing is final before the loader's commit.
void LoadPostalCodes(Loader& loader, const std::vector<Street>& streets, const Progress& progress = {});

/// Loads a list into the postal-code database that an installation's "server_cep.ini" names, on this machine or on a
/// Firebird server, and gives the number of streets; with mistakes in the list nothing is loaded. 53 without the files,
/// 13 for another engine.
qint64 LoadPostalCodeFile(const QString& home, const QString& list, ListMistakes& mistakes,
                          const Progress& progress = {});

} // namespace vorta::kit
