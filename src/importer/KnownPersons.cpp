#include "importer/KnownPersons.h"

#include "base/Literals.h"
#include "importer/Values.h"
#include "launch/AcessoDados.h"
#include "shared/TextoEntrada.h"

namespace vorta::importer {

namespace {

using data::Recordset;
using data::Statement;

const char* const addressColumns[]{"ende_coml_pess", "nume_coml_pess"};
const char* const addressFields[]{"txtEndereco", "txtNumero"};

bool sameAddress(const Recordset& stored, const PersonRow& row) {
    for (size_t at = 0; at < std::size(addressColumns); ++at)
        if (Folded(stored.Fields(addressColumns[at]).textOr({})) !=
            Folded(row.field(QString::fromLatin1(addressFields[at]))))
            return false;
    return true;
}

} // namespace

KnownPersons::Answer KnownPersons::ask(ContextoExecucao& contexto, const PersonRow& row, qint64 line) {
    const QString document = DocumentOf(row);
    const bool byName = IsNoDocument(document);
    const QString name = row.field(u"txtDescricao"_s);
    const QString key = byName ? Folded(name) : document;
    if (key.isEmpty() || key.contains(u'\''))
        return {}; // the screen has its own words for it
    if (const qint64 earlier = lines_.value(key, 0); earlier > 0)
        return {false, u"a mesma pessoa já está na linha %1 do arquivo"_s.arg(earlier)};
    lines_.insert(key, line);

    Statement query("select nome_pess, ende_coml_pess, nume_coml_pess from pess where ");
    if (byName)
        query << "nome_pess='" << RemoveAcentos(contexto, QString(name).replace(u'\'', QChar(u'\u00b4'))) << "'";
    else
        query << "cpf0_cnpj='" << document << "'";
    Recordset stored = AbreLeitura(contexto, query);
    if (stored.Eof())
        return {};
    const QString found = stored.Fields("nome_pess").textOr({});
    for (; !stored.Eof(); stored.MoveNext())
        if (byName ? sameAddress(stored, row) : Folded(stored.Fields("nome_pess").textOr({})) == Folded(name))
            return {true, {}};
    return {false, byName ? u"já existe pessoa com este nome e outro endereço, e a linha não tem documento"_s
                          : u"o documento %1 já é de %2"_s.arg(document, found)};
}

} // namespace vorta::importer
