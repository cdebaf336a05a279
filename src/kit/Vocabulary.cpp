#include "kit/Vocabulary.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "kit/Loader.h"
#include "kit/Reference.h"

#include <QHash>

namespace vorta::kit {

namespace {

std::vector<QStringList> rowsOf(const char* table) {
    return ReadReference(QString::fromLatin1(table)).rows;
}

std::vector<QByteArray> wordsOf(const char* table) {
    std::vector<QByteArray> words;
    for (const QStringList& row : rowsOf(table))
        words.push_back(Stored(row.join(u' ')));
    return words;
}

QHash<QString, QByteArray> ibgeCodes() {
    QHash<QString, QByteArray> codes;
    for (const QStringList& row : rowsOf("muni_ibge"))
        codes.insert(row[1] + u'/' + row[2], row[0].toLatin1());
    return codes;
}

std::vector<Town> towns() {
    const QHash<QString, QByteArray> codes = ibgeCodes();
    std::vector<Town> all;
    for (const QStringList& row : rowsOf("cidades")) {
        const Town town{Stored(row[0]),    row[1].toLatin1(), codes.value(row[0] + u'/' + row[1]),
                        row[4].toLatin1(), row[2].toInt(),    row[3].toInt()};
        all.insert(all.end(), size_t(row[5].toInt()), town);
    }
    return all;
}

std::vector<Branch> branches() {
    QHash<QString, int> keys;
    for (const QStringList& row : rowsOf("ativ"))
        keys.insert(row[0], int(keys.size()) + 1);
    std::vector<Branch> all;
    for (const QStringList& row : rowsOf("ramos"))
        all.push_back({Stored(row[0]), keys.value(row[1])});
    return all;
}

} // namespace

QByteArray Stored(const QString& text) {
    static const QString accented = u"ÀÁÂÃÄÅÇÈÉÊËÌÍÎÏÒÓÔÕÖÙÚÛÜ"_s;
    static const QString plain = u"AAAAAACEEEEIIIIOOOOOUUUU"_s;
    QString stored = UCase(text);
    for (QChar& letter : stored)
        if (const qsizetype at = accented.indexOf(letter); at >= 0)
            letter = plain[at];
    return ToWindows1252(stored);
}

Vocabulary ReadVocabulary() {
    Vocabulary words;
    for (const QStringList& row : rowsOf("nomes"))
        (row[1] == u"F" ? words.women : words.men).push_back(Stored(row[0]));
    words.surnames = wordsOf("sobrenomes");
    words.streets = wordsOf("logradouros");
    words.districts = wordsOf("bairros");
    words.positions = wordsOf("carg");
    words.branches = branches();
    words.towns = towns();
    return words;
}

} // namespace vorta::kit
