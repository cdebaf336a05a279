#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// The words that invented persons are made of, from the plain tables that come with the program (share/*.tsv), in the
/// form in which the register stores text: capitals without accents, Windows-1252.
namespace vorta::kit {

struct Town {
    QByteArray name;
    QByteArray state;
    QByteArray ibgeCode;
    QByteArray areaCode;
    int firstCep = 0; ///< first five digits
    int lastCep = 0;
};

struct Branch {
    QByteArray name;
    int activity = 0; ///< key of `ativ`
};

struct Vocabulary {
    std::vector<QByteArray> women, men, surnames, streets, districts, positions;
    std::vector<Branch> branches;
    std::vector<Town> towns; ///< a large town stands several times, so that it is met more often
};

Vocabulary ReadVocabulary();

/// As the register stores a text.
QByteArray Stored(const QString& text);

} // namespace vorta::kit
