#include "importer/Columns.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "importer/Values.h"

#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::importer;

namespace {

QString faultOf(const QStringList& header, const std::map<QString, QString>& names = {}) {
    try {
        const Columns columns(header, names);
    } catch (const RuntimeError& fault) {
        return fault.description();
    }
    return {};
}

PersonRow personWith(const QString& document, const QString& kind = {}) {
    PersonRow row;
    row.fields[u"mskCodigo"_s] = document;
    if (!kind.isEmpty())
        row.fields[u"cboFisJur"_s] = kind;
    return row;
}

QString typed(const char* mask, const char* text) {
    return TypedInto(QString::fromLatin1(mask), QString::fromUtf8(text));
}

} // namespace

TEST(Columns, AreFieldsOrColumnsInAnyCase) {
    const Columns columns({u"nome_pess"_s, u"TXTNUMERO"_s, u"Contato2_Nome"_s, u"contato1_tipo"_s, u"ramo1"_s,
                           u"PAPEIS"_s, u"cliente.txtLimiCred"_s, u"Saldo"_s, u"MOTIVO"_s},
                          {{u"saldo"_s, u"-"_s}});
    const PersonRow row = columns.row({u" Ana "_s, u"5"_s, u"Bia"_s, u"Diretor"_s, u"Informática"_s,
                                       u"fornecedor, CLIENTE/cliente"_s, u"10,00"_s, u"9"_s, u"x"_s});
    EXPECT_EQ(row.fields.size(), 2U);
    EXPECT_EQ(row.field(u"txtDescricao"_s), u"Ana");
    EXPECT_EQ(row.field(u"txtNumero"_s), u"5");
    ASSERT_EQ(row.contacts.size(), 2U);
    EXPECT_EQ(row.contacts[0][0].field, u"cboTipoContato");
    EXPECT_EQ(row.contacts[1][0].text, u"Bia");
    EXPECT_EQ(row.branches, QStringList{u"Informática"_s});
    ASSERT_EQ(row.roles.size(), 2U);
    EXPECT_EQ(row.roles[0].role->tipo, TipoPapel::Fornecedor);
    EXPECT_EQ(row.roles[1].fields[0].field, u"txtLimiCred");
    EXPECT_EQ(columns.ownColumns(), std::vector<qsizetype>{8});
}

TEST(Columns, ARoleHasFieldsAndContactsOfItsOwn) {
    const Columns columns({u"NOME_PESS"_s, u"PAPEIS"_s, u"fornecedor.contato1_nome"_s, u"FORNECEDOR.CONTATO2_NOME"_s,
                           u"FORNECEDOR.CONTATO2_ANIVERSARIO"_s, u"CONTATO1_ANIVERSARIO"_s, u"FORNECEDOR.txtLimiCred"_s,
                           u"DECORADOR.CONTATO2_NOME"_s},
                          {});
    const PersonRow row = columns.row({u"A"_s, u"Fornecedor Cliente"_s, {}, u"Rui"_s, u"5/8"_s, u"6/9"_s, u"9"_s});
    ASSERT_EQ(row.contacts.size(), 1U);
    EXPECT_EQ(row.contacts[0][0].field, u"mskDtNascCont");
    ASSERT_EQ(row.roles.size(), 2U);
    EXPECT_TRUE(row.roles[0].needsScreen());
    EXPECT_FALSE(row.roles[1].needsScreen());
    ASSERT_EQ(row.roles[0].contacts.size(), 1U) << "an empty one counts for nothing";
    EXPECT_EQ(row.roles[0].contacts[0][0].text, u"Rui");
    EXPECT_EQ(row.roles[0].contacts[0][1].field, u"mskDtNasc");
    EXPECT_EQ(row.roles[0].fields[0].field, u"txtLimiCred");
}

TEST(Columns, WhatDoesNotFitIsToldAtOnce) {
    EXPECT_EQ(faultOf({u"NOME_PESS"_s, u"Saldo"_s, u"txtDescricao"_s, QString()}),
              u"O cabeçalho não serve: coluna desconhecida: Saldo; coluna repetida: txtDescricao; coluna desconhecida: "
              "(sem nome)");
    EXPECT_EQ(faultOf({u"CPF0_CNPJ"_s}), u"O cabeçalho não serve: falta a coluna do nome (NOME_PESS)");
    for (const char16_t* closed : {u"IDPESS", u"DATA_DESA", u"FLAG_FISC_PESS", u"CODI_MUNI_COML_PESS", u"codi_empr"})
        EXPECT_TRUE(faultOf({u"NOME_PESS"_s, QString::fromUtf16(closed)}).contains(u"desconhecida"_s));
    // Roles without contacts, what is entered as a contact, nobody's role.
    for (const char16_t* ofRole :
         {u"VENDEDOR.CONTATO1_NOME", u"MOTORISTA.CONTATO1_NOME", u"CLIENTE.CONTATO0_NOME", u"CLIENTE.CONTATO1_IDADE",
          u"CLIENTE.txtNomeContato", u"CLIENTE.mskDtNasc", u"AMIGO.CONTATO1_NOME"})
        EXPECT_TRUE(faultOf({u"NOME_PESS"_s, QString::fromUtf16(ofRole)}).contains(u"desconhecida"_s))
            << qPrintable(QString::fromUtf16(ofRole));
    EXPECT_TRUE(
        faultOf({u"NOME_PESS"_s, u"CLIENTE.CONTATO1_NOME"_s, u"cliente.contato1_nome"_s}).contains(u"repetida"_s));
}

TEST(Columns, ARowThatDoesNotFitIsRefusedAlone) {
    const Columns columns({u"NOME_PESS"_s, u"PAPEIS"_s, u"CLIENTE.txtLimiCred"_s, u"CLIENTE.CONTATO1_NOME"_s}, {});
    const auto wordsOf = [&](const QStringList& cells) {
        try {
            columns.row(cells);
        } catch (const RuntimeError& fault) {
            return fault.description();
        }
        return QString();
    };
    EXPECT_EQ(wordsOf({u"A"_s, u"Cliente"_s, u"1"_s, u"B"_s, u"x"_s}), u"A linha tem 5 campos, o cabeçalho tem 4");
    EXPECT_EQ(wordsOf({u"A"_s, u"Amigo"_s}), u"PAPEIS: papel desconhecido: Amigo");
    EXPECT_EQ(wordsOf({u"A"_s, u"Fornecedor"_s, u"1"_s}), u"Há dados de Cliente, que não está em PAPEIS");
    EXPECT_EQ(wordsOf({u"A"_s, u"Fornecedor"_s, {}, u"B"_s}), u"Há dados de Cliente, que não está em PAPEIS");
    EXPECT_EQ(wordsOf({u"A"_s}), QString());
}

TEST(Values, KindsAndDocuments) {
    EXPECT_EQ(KindOf(personWith(u"529.982.247-25"_s)), u"Física");
    EXPECT_EQ(KindOf(personWith(u"11222333000181"_s)), u"Jurídica");
    EXPECT_EQ(KindOf(personWith(u"1"_s, u"j"_s)), u"Jurídica");
    EXPECT_EQ(KindOf(personWith(u"1"_s, u"JURIDICA"_s)), u"Jurídica");
    EXPECT_EQ(KindOf(personWith(u"1"_s, u"Empresa"_s)), u"Empresa");
    EXPECT_EQ(DocumentOf(personWith(u"52998224725"_s)), u"529.982.247-25");
    EXPECT_EQ(DocumentOf(personWith(u"191"_s, u"F"_s)), u"000.000.001-91");
    EXPECT_EQ(DocumentOf(personWith(u"191"_s, u"J"_s)), u"00.000.000/0001-91");
    EXPECT_EQ(DocumentOf(personWith(u"12abc34501de35"_s)), u"12.ABC.345/01DE-35");
    EXPECT_EQ(DocumentOf(personWith(u"1,12223E+13"_s)), u"1,12223E+13");
    EXPECT_EQ(DocumentOf(personWith({})), QString());
    EXPECT_TRUE(IsNoDocument({}));
    EXPECT_TRUE(IsNoDocument(u"00.000.000/0000-00"_s));
    EXPECT_FALSE(IsNoDocument(u"000.000.001-91"_s));
}

TEST(Values, WhatIsTypedIntoMasks) {
    EXPECT_EQ(typed("#####-###", "1310100"), u"01310100");
    EXPECT_EQ(typed("#####-###", "01310-100"), u"01310100");
    EXPECT_EQ(typed("#####-###", "131010"), u"131010");
    EXPECT_EQ(typed("##/##/####", "5/8/1990"), u"05/08/1990");
    EXPECT_EQ(typed("##/##/####", "1990-08-05"), u"05/08/1990");
    EXPECT_EQ(typed("##/##", "5/8"), u"05/08");
    EXPECT_EQ(typed("##/##", "05/08/1990"), u"05/08");
    EXPECT_EQ(typed("##.###.###/####-##", "11.222.333/0001-81"), u"11222333000181");
}
