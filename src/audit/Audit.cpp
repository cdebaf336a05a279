#include "audit/Audit.h"

#include "audit/Addresses.h"
#include "audit/Documents.h"
#include "audit/Duplicates.h"
#include "audit/Folding.h"
#include "audit/Links.h"
#include "audit/Pages.h"
#include "base/Literals.h"
#include "shared/ValidaCampos.h"
#include "shared/inscricao/ConsisteInscricaoEstadual.h"

namespace vorta::audit {

namespace {

using data::Recordset;

/// Columns of a person in the order in which they are read.
enum Column {
    Id,
    Kind,
    Document,
    Name,
    Registration,
    Address, ///< three of five columns each
    Phone1 = Address + 3 * addressColumns,
    Mail = Phone1 + 4,
    BillingMail,
    Roles,
    Deactivated = Roles + int(papeis.size())
};

constexpr PagedTable persons{
    "IDPESS, PSFI_PSJU, CPF0_CNPJ, NOME_PESS, RG00_IE00, "
    "CIDA_COML_PESS, UF00_COML_PESS, CEP0_COML_PESS, PAIS_COML_PESS, CODI_MUNI_COML_PESS, "
    "CIDA_ENTG_PESS, UF00_ENTG_PESS, CEP0_ENTG_PESS, PAIS_ENTG_PESS, CODI_MUNI_ENTG_PESS, "
    "CIDA_COBR_PESS, UF00_COBR_PESS, CEP0_COBR_PESS, PAIS_COBR_PESS, CODI_MUNI_COBR_PESS, "
    "TELE_0001_PESS, TELE_0002_PESS, FAX0_0001_PESS, FAX0_0002_PESS, EMAI_PESS, PRIN_EMAI_CONT, "
    "IDCLIE, IDTRPT, IDVEND, IDMOTO, IDFORN, IDDECO, IDARQT, DATA_DESA",
    "PESS", "IDPESS"};

class Auditor {
  public:
    Auditor(data::Connection& connection, bool letters, Findings& findings, const Progress& progress)
        : connection_(connection), letters_(letters), findings_(findings), progress_(progress) {}

    Extent run() {
        all_ = CountRows(connection_, "PESS");
        say(u"vínculos"_s, 0, 0);
        Links links(connection_);
        const Towns towns(connection_);
        Duplicates duplicates;
        ReadPages(
            connection_, persons, [&](qint64 key, const Recordset& row) { person(key, row, links, towns, duplicates); },
            [&] { say(u"pessoas"_s, extent_.persons, all_); });
        say(u"contatos, ramos e vínculos"_s, 0, 0);
        links.tell(connection_, findings_);
        duplicates.tell(connection_, findings_,
                        [&](qint64 done, qint64 all) { say(u"pessoas repetidas"_s, done, all); });
        return extent_;
    }

  private:
    void say(const QString& what, qint64 done, qint64 all) const {
        if (progress_)
            progress_(what, done, all);
    }

    void person(qint64 key, const Recordset& row, Links& links, const Towns& towns, Duplicates& duplicates) {
        const auto text = [&](int column) { return row.Fields(column).textOr({}); };
        PersonTraits traits{.id = key, .document = text(Document)};
        const QString kind = text(Kind).trimmed();
        traits.name = text(Name);
        const QString registration = text(Registration).trimmed();
        ++extent_.persons;
        Finding finding{.person = key, .name = traits.name, .document = traits.document};
        const std::array<PersonAddress, 3> addresses = AddressesOf(row, Address);
        traits.town = addresses[0].town;
        traits.state = addresses[0].state;
        for (std::size_t phone = 0; phone < traits.phones.size(); ++phone)
            traits.phones[phone] = text(Phone1 + int(phone));
        traits.mail = text(Mail);
        const QString billingMail = text(BillingMail);
        std::array<qint64, papeis.size()> references{};
        for (std::size_t role = 0; role < references.size(); ++role)
            references[role] = NumberOf(row.Fields(Roles + int(role)));
        finding.deactivated = traits.deactivated = !row.Fields(Deactivated).isNull();
        extent_.deactivated += traits.deactivated ? 1 : 0;

        const auto wrong = [&](Check check, const QString& field, const QString& value, const QString& words) {
            finding.check = check;
            finding.field = field;
            finding.value = value;
            finding.words = words;
            findings_.found(finding);
        };
        if (const Judgement judged = JudgeDocument(kind, traits.document, letters_); judged.check)
            wrong(*judged.check, u"CPF0_CNPJ"_s, traits.document, judged.words);
        if (kind != u"F" && !registration.isEmpty() && ConsisteInscricaoEstadual(registration, traits.state) != 0)
            wrong(Check::Registration, u"RG00_IE00"_s, registration,
                  traits.state.isEmpty() ? u"sem o estado"_s : u"não segue a regra de %1"_s.arg(traits.state));
        for (const PersonAddress& address : addresses)
            JudgeAddress(address, towns, wrong);
        mail(wrong, u"EMAI_PESS"_s, traits.mail);
        mail(wrong, u"PRIN_EMAI_CONT"_s, billingMail);
        links.addPerson(key, references, [&](const QString& column, const QString& value, const QString& words) {
            wrong(Check::ReferenceToNothing, column, value, words);
        });
        duplicates.add(traits);
    }

    template <typename Wrong>
    static void mail(const Wrong& wrong, const QString& field, const QString& mail) {
        const QString trimmed = mail.trimmed();
        if (const QString words = trimmed.isEmpty() ? QString() : FalhaEmail(trimmed); !words.isEmpty())
            wrong(Check::Mail, field, mail, words);
    }

    data::Connection& connection_;
    const bool letters_;
    Findings& findings_;
    const Progress& progress_;
    Extent extent_;
    qint64 all_ = 0;
};

} // namespace

Extent AuditRegister(data::Connection& connection, bool letters, Findings& findings, const Progress& progress) {
    return Auditor(connection, letters, findings, progress).run();
}

} // namespace vorta::audit
