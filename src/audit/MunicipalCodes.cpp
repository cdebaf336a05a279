#include "audit/MunicipalCodes.h"

#include "audit/Addresses.h"
#include "audit/Pages.h"
#include "base/Literals.h"

namespace vorta::audit {

namespace {

using data::Piece;
using data::Recordset;
using data::Statement;

constexpr PagedTable persons{
    "IDPESS, CIDA_COML_PESS, UF00_COML_PESS, CEP0_COML_PESS, PAIS_COML_PESS, CODI_MUNI_COML_PESS, "
    "CIDA_ENTG_PESS, UF00_ENTG_PESS, CEP0_ENTG_PESS, PAIS_ENTG_PESS, CODI_MUNI_ENTG_PESS, "
    "CIDA_COBR_PESS, UF00_COBR_PESS, CEP0_COBR_PESS, PAIS_COBR_PESS, CODI_MUNI_COBR_PESS, NOME_PESS",
    "PESS", "IDPESS"};
constexpr int nameColumn = 16;

/// The columns of an address that a filling names, in the order of `AddressesOf`.
struct FilledColumns {
    Piece code, town;
};

constexpr std::array columns{FilledColumns{"CODI_MUNI_COML_PESS", "CIDA_COML_PESS"},
                             FilledColumns{"CODI_MUNI_ENTG_PESS", "CIDA_ENTG_PESS"},
                             FilledColumns{"CODI_MUNI_COBR_PESS", "CIDA_COBR_PESS"}};

struct Filling {
    qint64 person;
    std::size_t address;
    QString town, code;
    QStringList told;
};

/// Only a code that is still empty beside the town that was read: a colleague may have been there meanwhile. A text
/// cannot hold an apostrophe, for which the sign of any character stands.
Statement fillingOf(const Filling& filling) {
    const FilledColumns& named = columns[filling.address];
    QString town = filling.town;
    town.replace(u'\'', u'_');
    return Statement("UPDATE PESS SET ") << named.code << " = '" << filling.code
                                         << "' WHERE IDPESS = " << filling.person << " AND (" << named.code
                                         << " IS NULL OR " << named.code << " = '') AND " << named.town << " LIKE '"
                                         << town << "'";
}

class Filler {
  public:
    Filler(data::Connection& connection, bool writes, Sheet* sheet, const Progress& progress)
        : connection_(connection), writes_(writes), sheet_(sheet), progress_(progress), towns_(connection) {}

    CodesFilled run() {
        const qint64 all = CountRows(connection_, "PESS");
        ReadPages(
            connection_, persons, [&](qint64 key, const Recordset& row) { person(key, row); },
            [&] {
                write();
                if (progress_)
                    progress_(u"pessoas"_s, done_, all);
            });
        return result_;
    }

  private:
    void person(qint64 key, const Recordset& row) {
        ++done_;
        const std::array<PersonAddress, 3> addresses = AddressesOf(row, 1);
        for (std::size_t at = 0; at < addresses.size(); ++at) {
            const PersonAddress& address = addresses[at];
            if (!address.code.trimmed().isEmpty() || address.isForeign())
                continue;
            if (address.town.trimmed().isEmpty() || address.state.isEmpty()) {
                ++result_.withoutTown;
            } else if (const std::optional<QString> code = towns_.codeOf(address.town, address.state)) {
                page_.push_back({key,
                                 at,
                                 address.town,
                                 *code,
                                 {QString::number(key), row.Fields(nameColumn).textOr({}), address.column("CODI_MUNI"),
                                  address.town, address.state, *code}});
            } else {
                ++result_.unknownTown;
            }
        }
    }

    /// What a page has to fill is written whole or not at all: a failure closes the connection, and the transaction
    /// with it.
    void write() {
        if (writes_ && !page_.empty()) {
            connection_.BeginTrans();
            for (const Filling& filling : page_)
                connection_.Execute(fillingOf(filling));
            connection_.CommitTrans();
        }
        for (const Filling& filling : page_)
            if (sheet_)
                sheet_->row(filling.told);
        result_.filled += static_cast<qint64>(page_.size());
        page_.clear();
    }

    data::Connection& connection_;
    const bool writes_;
    Sheet* const sheet_;
    const Progress& progress_;
    const Towns towns_;
    std::vector<Filling> page_;
    CodesFilled result_;
    qint64 done_ = 0;
};

} // namespace

CodesFilled FillMunicipalCodes(data::Connection& connection, bool writes, Sheet* sheet, const Progress& progress) {
    return Filler(connection, writes, sheet, progress).run();
}

QStringList FilledCodesTitles() {
    return {u"Pessoa"_s, u"Nome"_s, u"Campo"_s, u"Cidade"_s, u"UF"_s, u"Código"_s};
}

} // namespace vorta::audit
