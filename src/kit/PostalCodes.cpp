#include "kit/PostalCodes.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/ServerLine.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "data/EngineTags.h"
#include "kit/ConfigFiles.h"
#include "kit/Reference.h"

#include <QFile>
#include <QHash>
#include <QSet>

#include <array>

namespace vorta::kit {

namespace {

constexpr qsizetype mostReported = 20;
constexpr qsizetype cepDigits = 8;

enum Field { Cep, Type, Abbreviation, Name, District, Town, State, FieldCount };
constexpr std::array<const char*, FieldCount> titles{"cep",    "tipo",   "abreviatura", "logradouro",
                                                     "bairro", "cidade", "uf"};

QSet<QString> states() {
    QSet<QString> codes;
    for (const QStringList& row : ReadReference(u"UF00"_s).rows)
        codes.insert(row.front());
    return codes;
}

QString titleLine() {
    QStringList words;
    for (const char* title : titles)
        words << QString::fromLatin1(title);
    return words.join(u'\t');
}

/// Reads line by line; every line is looked at, so that one run tells all that is wrong.
class ListReader {
  public:
    explicit ListReader(ListMistakes& mistakes) : mistakes_(mistakes), states_(states()) {}

    void read(const QString& text, const Progress& progress) {
        qint64 number = 0;
        Steps steps(progress, u"linhas lidas"_s, text.count(u'\n'));
        for (const QStringView rest : QStringView(text).split(u'\n')) {
            ++number;
            steps.step();
            QString line = rest.toString();
            if (line.endsWith(u'\r'))
                line.chop(1);
            if (number == 1)
                readTitles(line);
            else if (!line.trimmed().isEmpty())
                readLine(number, line);
        }
    }
    std::vector<Street> streets;

  private:
    void mistake(qint64 line, const QString& words) {
        if (mistakes_.lines.size() < mostReported)
            mistakes_.lines << u"linha %1: %2"_s.arg(line).arg(words);
        ++mistakes_.all;
    }

    void readTitles(QString line) {
        if (line.startsWith(QChar(0xFEFF)))
            line.remove(0, 1);
        if (line.trimmed().toLower() != titleLine())
            mistake(1, u"a primeira linha deve trazer os títulos, separados por tabulação: %1"_s.arg(
                           titleLine().replace(u'\t', u' ')));
    }

    void readLine(qint64 number, const QString& line) {
        QStringList fields = line.split(u'\t');
        if (fields.size() != FieldCount)
            return mistake(
                number,
                u"esperados %1 campos separados por tabulação, há %2"_s.arg(int(FieldCount)).arg(fields.size()));
        for (QString& field : fields)
            field = WithoutApostrophes(field.trimmed());
        if (fields[Cep].size() == cepDigits + 1 && fields[Cep][5] == u'-')
            fields[Cep].remove(5, 1);
        fields[State] = fields[State].toUpper();
        if (const QString wrong = faultOf(fields); !wrong.isEmpty())
            return mistake(number, wrong);
        const auto bytes = [&](Field field) { return ToWindows1252(fields[field]); };
        streets.push_back(
            {bytes(Cep), bytes(Type), bytes(Abbreviation), bytes(Name), bytes(District), bytes(Town), bytes(State)});
    }

    QString faultOf(const QStringList& fields) const {
        const bool digits =
            fields[Cep].size() == cepDigits &&
            std::all_of(fields[Cep].begin(), fields[Cep].end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
        if (!digits)
            return u"o CEP [%1] não tem oito dígitos"_s.arg(fields[Cep]);
        if (fields[Name].isEmpty())
            return u"falta o logradouro"_s;
        if (fields[Town].isEmpty())
            return u"falta a cidade"_s;
        if (!states_.contains(fields[State]))
            return u"a UF [%1] não existe"_s.arg(fields[State]);
        for (const QString& field : fields)
            if (!InRepertoire(field))
                return u"[%1] tem caracteres que a base não guarda"_s.arg(field);
        return tooLong(fields);
    }

    QString tooLong(const QStringList& fields) const {
        static const std::array<int, FieldCount> most{8, 100, 20, 100, 100, 100, 2};
        for (int i = 0; i < FieldCount; ++i)
            if (fields[i].size() > most[size_t(i)])
                return u"o campo %1 passa de %2 caracteres"_s.arg(QLatin1StringView(titles[size_t(i)]))
                    .arg(most[size_t(i)]);
        return {};
    }

    ListMistakes& mistakes_;
    QSet<QString> states_;
};

/// Numbers texts in the order of their first appearance, telling which are new.
class Numbering {
  public:
    /// The key of a text, and whether it was not seen before.
    std::pair<QByteArray, bool> of(const QByteArray& text) {
        if (const auto found = keys_.constFind(text); found != keys_.constEnd())
            return {*found, false};
        const QByteArray key = QByteArray::number(keys_.size() + 1);
        keys_.insert(text, key);
        return {key, true};
    }

  private:
    QHash<QByteArray, QByteArray> keys_;
};

const Table& tableOf(const char* name) {
    return *FindTable(QString::fromLatin1(name));
}

} // namespace

std::vector<Street> ReadStreets(const QString& path, ListMistakes& mistakes, const Progress& progress) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(errorNumber::FileNotFound, u"Não foi possível ler %1: %2"_s.arg(path, file.errorString()));
    ListReader reader(mistakes);
    reader.read(DecodedText(file.readAll()), progress);
    return std::move(reader.streets);
}

std::vector<Street> SampleStreets() {
    std::vector<Street> streets;
    for (const QStringList& row : ReadReference(u"ruas"_s).rows)
        streets.push_back({ToWindows1252(row[Cep]), ToWindows1252(row[Type]), ToWindows1252(row[Abbreviation]),
                           ToWindows1252(row[Name]), ToWindows1252(row[District]), ToWindows1252(row[Town]),
                           ToWindows1252(row[State])});
    return streets;
}

void LoadPostalCodes(Loader& loader, const std::vector<Street>& streets, const Progress& progress) {
    if (progress)
        progress(u"a lista anterior sai"_s, 0, 0);
    for (const char* table : {"LOGR", "TIPO", "LOCA", "BAIR"})
        loader.run(u"DELETE FROM %1"_s.arg(QLatin1StringView(table)));
    RowLoader roads(loader, tableOf("LOGR")), types(loader, tableOf("TIPO")), towns(loader, tableOf("LOCA")),
        districts(loader, tableOf("BAIR"));
    Numbering typeKeys, townKeys, districtKeys;
    Steps steps(progress, u"logradouros"_s, static_cast<qint64>(streets.size()));
    for (const Street& street : streets) {
        steps.step();
        const auto [type, newType] = typeKeys.of(street.type + '\t' + street.abbreviation);
        if (newType) {
            types << type << street.type << street.abbreviation;
            types.send();
        }
        const auto [town, newTown] = townKeys.of(street.town + '\t' + street.state);
        if (newTown) {
            towns << town << street.town;
            towns.send();
        }
        const auto [district, newDistrict] = districtKeys.of(town + '\t' + street.district);
        if (newDistrict) {
            districts << district << town << street.district << street.district << street.state;
            districts.send();
        }
        roads << street.cep << street.name << street.state << type << town << district;
        roads.send();
    }
}

qint64 LoadPostalCodeFile(const QString& home, const QString& list, ListMistakes& mistakes, const Progress& progress) {
    const QString path = Layout(home).config(u"server_cep.ini"_s);
    const std::optional<QStringList> lines = LinesOf(path);
    if (!lines)
        throw RuntimeError(errorNumber::FileNotFound, u"Não foi possível ler %1"_s.arg(path));
    const ServerLine server(lines->value(0));
    if (!data::TagOpens(server.engine, data::Engine::Firebird))
        throw RuntimeError(
            errorNumber::TypeMismatch,
            u"A base de CEPs de %1 não é Firebird; carregue-a com as ferramentas do servidor"_s.arg(path));
    const std::vector<Street> streets = ReadStreets(list, mistakes, progress);
    if (mistakes.all > 0)
        return 0;
    Loader loader(server.firebirdConnection);
    LoadPostalCodes(loader, streets, progress);
    loader.commit();
    return static_cast<qint64>(streets.size());
}

} // namespace vorta::kit
