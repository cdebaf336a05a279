#include "audit/Links.h"

#include "audit/Pages.h"
#include "base/Literals.h"
#include "shared/ValidaCampos.h"

#include <algorithm>

namespace vorta::audit {

namespace {

using data::Piece;
using data::Recordset;

/// The default salesperson of a person stands in the column of the link, so that who owns the row says nothing.
bool isShared(const Papel& role) {
    return role.tipo == TipoPapel::Vendedor;
}

/// A table whose rows belong to a person or to a role, with what the audit reads of them.
struct ChildTable {
    Piece table;
    Piece key;
    Piece columns;                 ///< the key, the parent, the e-mail if there is one
    std::optional<TipoPapel> role; ///< none: rows of a person
    Check orphan;
    bool mail = true;
};

constexpr std::array childTables{
    ChildTable{"PESS_CONT", "IDPESS_CONT", "IDPESS_CONT, IDPESS, EMAI_PESS_CONT", {}, Check::ContactWithoutPerson},
    ChildTable{"PESS_ATIV", "IDPESS_ATIV", "IDPESS_ATIV, IDPESS", {}, Check::BranchWithoutPerson, false},
    ChildTable{"CLIE_CONT", "IDCLIE_CONT", "IDCLIE_CONT, IDCLIE, EMAI_CLIE_CONT", TipoPapel::Cliente,
               Check::ContactWithoutRole},
    ChildTable{"FORN_CONT", "IDFORN_CONT", "IDFORN_CONT, IDFORN, EMAI_FORN_CONT", TipoPapel::Fornecedor,
               Check::ContactWithoutRole},
    ChildTable{"TRPT_CONT", "IDTRPT_CONT", "IDTRPT_CONT, IDTRPT, EMAI_TRPT_CONT", TipoPapel::Transportadora,
               Check::ContactWithoutRole},
    ChildTable{"ARQT_CONT", "IDARQT_CONT", "IDARQT_CONT, IDARQT, EMAI_ARQT_CONT", TipoPapel::Arquiteto,
               Check::ContactWithoutRole},
    ChildTable{"DECO_CONT", "IDDECO_CONT", "IDDECO_CONT, IDDECO, EMAI_DECO_CONT", TipoPapel::Decorador,
               Check::ContactWithoutRole},
};

PagedTable pagesOf(const Papel& role) {
    switch (role.tipo) {
    case TipoPapel::Cliente:
        return {"IDCLIE, IDPESS, DATA_DESA", role.tabela, role.chave};
    case TipoPapel::Transportadora:
        return {"IDTRPT, IDPESS, DATA_DESA", role.tabela, role.chave};
    case TipoPapel::Vendedor:
        return {"IDVEND, IDPESS, DATA_DESA", role.tabela, role.chave};
    case TipoPapel::Motorista:
        return {"IDMOTO, IDPESS, DATA_DESA", role.tabela, role.chave};
    case TipoPapel::Fornecedor:
        return {"IDFORN, IDPESS, DATA_DESA", role.tabela, role.chave};
    case TipoPapel::Decorador:
        return {"IDDECO, IDPESS, DATA_DESA", role.tabela, role.chave};
    case TipoPapel::Arquiteto:
        return {"IDARQT, IDPESS, DATA_DESA", role.tabela, role.chave};
    }
    return {"", role.tabela, role.chave};
}

QString rowName(Piece table, qint64 key) {
    return u"%1 %2"_s.arg(table.toString().toUpper()).arg(key);
}

} // namespace

Links::Links(data::Connection& connection) {
    for (std::size_t role = 0; role < papeis.size(); ++role)
        ReadPages(connection, pagesOf(papeis[role]), [&](qint64 key, const Recordset& row) {
            roles_[role].push_back({key, NumberOf(row.Fields(1)), row.Fields(2).isNull(), false});
        });
}

Links::RoleRow* Links::find(RoleRows& rows, qint64 id) {
    const auto found = std::ranges::lower_bound(rows, id, {}, &RoleRow::id);
    return found == rows.end() || found->id != id ? nullptr : &*found;
}

bool Links::knowsPerson(qint64 id) const {
    return std::ranges::binary_search(persons_, id);
}

void Links::addPerson(qint64 person, const std::array<qint64, papeis.size()>& references, const Wrong& wrong) {
    persons_.push_back(person);
    for (std::size_t role = 0; role < papeis.size(); ++role) {
        const qint64 id = references[role];
        if (id <= 0)
            continue;
        RoleRow* const row = find(roles_[role], id);
        if (row && row->person == person)
            row->referred = true;
        else if (!row || !isShared(papeis[role]))
            wrong(papeis[role].chave.toString(), QString::number(id),
                  row ? u"o vínculo é da pessoa %1"_s.arg(row->person)
                      : u"não existe em %1"_s.arg(papeis[role].tabela.toString()));
    }
}

void Links::tellRoles(const Papel& role, const RoleRows& rows, Findings& findings) const {
    for (const RoleRow& row : rows) {
        Finding finding{.person = row.person, .field = rowName(role.tabela, row.id)};
        if (!knowsPerson(row.person)) {
            finding.check = Check::RoleWithoutPerson;
            finding.person = 0;
            finding.value = QString::number(row.person);
            finding.words = u"a pessoa não existe"_s;
            findings.found(finding);
        } else if (row.active && !row.referred && !isShared(role)) {
            finding.check = Check::LinkUnreferenced;
            finding.words =
                u"a coluna %1 da pessoa não o nomeia; a busca por Prospect a mostra"_s.arg(role.chave.toString());
            findings.found(finding);
        }
    }
}

void Links::tellContacts(data::Connection& connection, Findings& findings) {
    for (const ChildTable& child : childTables)
        ReadPages(connection, {child.columns, child.table, child.key}, [&](qint64 key, const Recordset& row) {
            const qint64 parent = NumberOf(row.Fields(1));
            const RoleRow* const role =
                child.role ? find(roles_[static_cast<std::size_t>(*child.role)], parent) : nullptr;
            const bool orphan = child.role ? !role : !knowsPerson(parent);
            Finding finding{.person = role ? role->person : orphan ? 0 : parent, .field = rowName(child.table, key)};
            if (orphan) {
                finding.check = child.orphan;
                finding.value = QString::number(parent);
                finding.words = child.role ? u"o vínculo não existe"_s : u"a pessoa não existe"_s;
                findings.found(finding);
            }
            const QString mail = child.mail ? row.Fields(2).textOr({}) : QString();
            if (const QString words = FalhaEmail(mail.trimmed()); !mail.trimmed().isEmpty() && !words.isEmpty()) {
                finding.check = Check::Mail;
                finding.value = mail;
                finding.words = words;
                findings.found(finding);
            }
        });
}

void Links::tell(data::Connection& connection, Findings& findings) {
    for (std::size_t role = 0; role < papeis.size(); ++role)
        tellRoles(papeis[role], roles_[role], findings);
    tellContacts(connection, findings);
}

} // namespace vorta::audit
