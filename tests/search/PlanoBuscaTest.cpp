#include "base/Literals.h"
#include "firebird/Client.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Ddl.h"
#include "search/BuscaTest.h"
#include "search/ConsultaPessoas.h"

#include <QRegularExpression>
#include <QTemporaryDir>

namespace vorta::test {

namespace {

using Tela = frmBROWSE_PESSOAS;
using Opcao = screen::Option Tela::*;

data::Statement asStatement(const QString& texto) {
    data::Statement comando;
    comando += texto;
    return comando;
}

/// Collects the texts of one column.
class Colunas : public data::RowSink {
  public:
    void columns(const QStringList&) override {}
    void beginRow() override {}
    void null() override {}
    void integer(qint64) override {}
    void decimal(data::Decimal) override {}
    void text(std::string_view utf8) override { textos += QString::fromUtf8(utf8.data(), utf8.size()).trimmed(); }
    void date(const QDateTime&) override {}
    void endRow() override {}

    QStringList textos;
};

} // namespace

/// The searches that begin with a text or compare a whole field must find their rows by an index, on the tables as an
/// installation has them.
class PlanoBusca : public BuscaTest {
  protected:
    static void SetUpTestSuite() {
        pasta = std::make_unique<QTemporaryDir>();
        firebird::PrepareEmbeddedEngine(pasta->path());
        firebird::CreateDatabase(baseFile(), {.forcedWrites = false});
        motor = data::MakeFirebirdAdapter();
        motor->open(baseFile(), 10);
        for (const QString& comando : kit::TableStatements(data::Engine::Firebird, kit::Base::Main))
            motor->execute(asStatement(comando));
        motor->execute(
            asStatement(u"execute block as declare i integer = 0; begin while (i < 5000) do begin insert into "
                        u"pess (idpess, nome_pess, nome_conh, "
                        "cpf0_cnpj, pess_codi_exte, cida_coml_pess, uf00_coml_pess, data_desa) values (:i, "
                        "'NOME ' || mod(:i * 7919, 5000), 'CONH ' "
                        "|| :i, :i, :i, 'CIDADE ' || mod(:i, 90), 'U' || mod(:i, 27), iif(mod(:i, 20) = 0, "
                        "date '2020-01-01', null)); i = i + 1; "
                        "end end"_s));
        for (const QString& comando : kit::IndexStatements(data::Engine::Firebird, kit::Base::Main))
            motor->execute(asStatement(comando));
    }

    static void TearDownTestSuite() {
        motor.reset();
        pasta.reset();
    }

    static QString baseFile() { return pasta->filePath(u"plano.fdb"_s); }

    /// The statement that the screen sends for that way of searching.
    QString statementOf(Opcao forma, Opcao conteudo, const char* texto) {
        QString enviada;
        open<Tela>("frmBROWSE_PESSOAS", [&](Tela& tela) {
            (tela.*forma).setValue(true);
            (tela.*conteudo).setValue(true);
            tela.cboCod.setText(QString::fromUtf8(texto));
            forget();
            user.click(tela.cmdPesquisa);
            enviada = database.sent.value(0);
            EXPECT_EQ(platform.boxes.news(), QStringList(nothingFound));
        });
        return enviada;
    }

    static QString planOf(const QString& comando) {
        firebird::Status status;
        firebird::Attachment base = firebird::Attach(baseFile(), 10);
        firebird::Handle<Firebird::ITransaction> leitura(base->startTransaction(&status, 0, nullptr));
        const QByteArray bytes = comando.toUtf8();
        firebird::Handle<Firebird::IStatement> preparado(
            base->prepare(&status, leitura.get(), static_cast<unsigned>(bytes.size()), bytes.constData(),
                          SQL_DIALECT_V6, Firebird::IStatement::PREPARE_PREFETCH_LEGACY_PLAN));
        const QString texto = QString::fromUtf8(preparado->getPlan(&status, false));
        firebird::EndWith(preparado, [&](auto* aberto) { aberto->free(&status); });
        firebird::EndWith(leitura, [&](auto* aberta) { aberta->commit(&status); });
        firebird::EndWith(base, [&](auto* aberta) { aberta->detach(&status); });
        return texto.trimmed();
    }

    static QString indexOf(const char* coluna) { return indexOf(u"PESS"_s, QLatin1StringView(coluna)); }
    static QString indexOf(const QString& tabela, const QString& coluna) {
        Colunas achados;
        motor->query(
            asStatement(u"select s.rdb$index_name from rdb$index_segments s join rdb$indices i on i.rdb$index_name = "
                        "s.rdb$index_name where i.rdb$relation_name = '%1' and s.rdb$field_name = '%2' and "
                        "s.rdb$field_position = 0"_s.arg(tabela, coluna)),
            achados);
        return achados.textos.value(0);
    }

    static inline std::unique_ptr<QTemporaryDir> pasta;
    static inline std::unique_ptr<data::Adapter> motor;
};

TEST_F(PlanoBusca, BeginningAndWholeFieldUseTheIndex) {
    struct Caso {
        Opcao forma;
        Opcao conteudo;
        const char* texto;
        const char* coluna;
    };
    const Caso casos[]{
        {&Tela::opNome, &Tela::opInicialCom, "nome 12", "NOME_PESS"},
        {&Tela::opNome, &Tela::opCampoInteiro, "nome 12", "NOME_PESS"},
        {&Tela::opFantasia, &Tela::opInicialCom, "conh 12", "NOME_CONH"},
        {&Tela::opFantasia, &Tela::opCampoInteiro, "conh 12", "NOME_CONH"},
        {&Tela::opCPFCNPJ, &Tela::opQualquerParte, "123", "CPF0_CNPJ"},
        {&Tela::opUF, &Tela::opQualquerParte, "U7", "UF00_COML_PESS"},
    };
    for (const Caso& caso : casos) {
        const QString comando = statementOf(caso.forma, caso.conteudo, caso.texto);
        const QString indice = indexOf(caso.coluna);
        const QString usado = planOf(comando);
        ASSERT_FALSE(indice.isEmpty()) << caso.coluna;
        EXPECT_TRUE(usado.contains(indice)) << comando << "\n" << usado;
        EXPECT_FALSE(usado.contains(u"NATURAL")) << usado;
    }
}

/// A person is read in its place and the result sorted: walking an index in its order would read a page for each.
TEST_F(PlanoBusca, WhatLooksAtEveryoneReadsThemInTheirPlaces) {
    const std::pair<Opcao, const char*> casos[]{
        {&Tela::opNome, "nome"},  {&Tela::opNome, ""},       {&Tela::opFantasia, "conh"}, {&Tela::opFantasia, ""},
        {&Tela::opCidade, "cid"}, {&Tela::opTelefone, "33"}, {&Tela::opCodExterno, "7"},  {&Tela::opCodExterno, ""}};
    for (const auto& [forma, texto] : casos) {
        const QString comando = statementOf(forma, &Tela::opQualquerParte, texto);
        EXPECT_EQ(planOf(comando), u"PLAN SORT (PESS NATURAL)") << comando;
    }
}

/// What loads, saves and counts ask. An index is told by its table and column.
TEST_F(PlanoBusca, OtherStatementsFindTheirRowsByTheirIndexes) {
    const std::pair<const char*, const char*> casos[]{
        {"SELECT * FROM PESS WHERE IDPESS = 7", "PLAN (PESS INDEX (PESS.IDPESS))"},
        {"SELECT * FROM PESS WHERE PESS_CODI_EXTE = '7'", "PLAN (PESS INDEX (PESS.PESS_CODI_EXTE))"},
        {"SELECT IDPESS FROM PESS WHERE PESS.NOME_PESS='NOME 7'", "PLAN (PESS INDEX (PESS.NOME_PESS))"},
        {"SELECT IDPESS FROM PESS WHERE PESS.NOME_CONH='CONH 7'", "PLAN (PESS INDEX (PESS.NOME_CONH))"},
        {"SELECT * FROM PESS ORDER BY IDPESS", "PLAN (PESS ORDER PESS.IDPESS)"},
        {"SELECT COUNT(*) FROM PESS WHERE DATA_DESA IS NULL", "PLAN (PESS NATURAL)"},
        {"SELECT COUNT(*) FROM CLIE WHERE DATA_DESA IS NULL", "PLAN (CLIE NATURAL)"},
        {"SELECT IDCLIE FROM CLIE WHERE IDPESS = 7 AND DATA_DESA IS NULL", "PLAN (CLIE INDEX (CLIE.IDPESS))"},
        {"SELECT IDMOTO FROM MOTO WHERE IDPESS = 7 AND DATA_DESA IS NULL", "PLAN (MOTO INDEX (MOTO.IDPESS))"},
        {"SELECT * FROM PESS_ATIV WHERE IDPESS=7", "PLAN (PESS_ATIV INDEX (PESS_ATIV.IDPESS))"},
        {"SELECT * FROM PESS_CONT WHERE IDPESS=7", "PLAN (PESS_CONT INDEX (PESS_CONT.IDPESS))"},
        {"SELECT * FROM FORN_CONT WHERE IDFORN=7", "PLAN (FORN_CONT INDEX (FORN_CONT.IDFORN))"},
        {"SELECT IDPROD, QTDE FROM PEDI_VEDS_DETA WHERE IDPEDI_VEDS = 7",
         "PLAN (PEDI_VEDS_DETA INDEX (PEDI_VEDS_DETA.IDPEDI_VEDS))"},
        {"SELECT * FROM PROD_EMPR WHERE IDPROD = 7 AND CODI_EMPR='0001'", "PLAN (PROD_EMPR INDEX (PROD_EMPR.IDPROD))"},
        {"SELECT IDPROD FROM PROD WHERE CODI_PROD='7'", "PLAN (PROD INDEX (PROD.CODI_PROD))"},
        {"SELECT VALO_PARA FROM EMPR_CNFG WHERE NOME_PARA='X'", "PLAN (EMPR_CNFG INDEX (EMPR_CNFG.NOME_PARA))"},
    };
    static const QRegularExpression indice(u"(\\w+)\\.(\\w+)"_s);
    for (const auto& [comando, plano] : casos) {
        QString esperado = QString::fromLatin1(plano);
        const QRegularExpressionMatch nome = indice.match(esperado);
        if (nome.hasMatch())
            esperado.replace(nome.captured(), indexOf(nome.captured(1), nome.captured(2)));
        EXPECT_EQ(planOf(QString::fromLatin1(comando)), esperado) << comando;
    }
}

TEST_F(PlanoBusca, TheInternalCodeWalksItsKey) {
    const QString usado = planOf(statementOf(&Tela::opCodInterno, &Tela::opQualquerParte, "7"));
    EXPECT_EQ(usado, u"PLAN (PESS ORDER "_s + indexOf("IDPESS") + u')');
}

} // namespace vorta::test
