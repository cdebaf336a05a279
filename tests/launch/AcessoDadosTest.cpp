#include "launch/AcessoDados.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

TEST(AcessoDados, ReadsGoInCapitalsOrAsWritten) {
    World mundo;
    mundo.connect();
    const QString nome = u"João"_s;
    AbreLeitura(mundo.contexto, data::Statement() << "select * from pess where nome='" << nome << "'");
    AbreLeituraComoEscrita(mundo.contexto, data::Statement() << "select * from pess where nome='" << nome << "'");
    EXPECT_EQ(mundo.database.sent,
              QStringList({u"SELECT * FROM PESS WHERE NOME='JOÃO'"_s, u"select * from pess where nome='João'"_s}));
    EXPECT_TRUE(mundo.database.writes.isEmpty());
}

TEST(AcessoDados, WritesGoInCapitals) {
    World mundo;
    mundo.connect();
    Executa(mundo.contexto, data::Statement() << "update pess set nome='" << u"João"_s << "'");
    EXPECT_EQ(mundo.database.writes, QStringList(u"UPDATE PESS SET NOME='JOÃO'"_s));
}

TEST(AcessoDados, WithoutAConnectionEveryStatementFails) {
    World mundo;
    EXPECT_EQ(ErrorOf([&] { AbreLeitura(mundo.contexto, data::Statement("select 1")); }), errorNumber::ObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { Executa(mundo.contexto, data::Statement("delete")); }), errorNumber::ObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { LeParametroEmpresa(mundo.contexto, u"X"_s); }), errorNumber::ObjectNotSet);
}

TEST(AcessoDados, CompanySwitches) {
    World mundo;
    mundo.connect();
    EXPECT_EQ(LeParametroEmpresa(mundo.contexto, u"Pess_Botao_Cliente  "_s), QString());
    EXPECT_EQ(mundo.database.sent, QStringList(u"SELECT * FROM EMPR_CNFG WHERE NOME_PARA='PESS_BOTAO_CLIENTE'"_s));
    mundo.database.answer(u"EMPR_CNFG"_s, {{u"nome_para"_s, u"valo_para"_s}, {{text("x"), text("n ")}}});
    EXPECT_EQ(LeParametroEmpresa(mundo.contexto, u"PESS_BOTAO_CLIENTE"_s), u"n "_s);
    mundo.database.answer(u"EMPR_CNFG"_s, {{u"valo_para"_s}, {{null()}}});
    EXPECT_EQ(LeParametroEmpresa(mundo.contexto, u"PESS_BOTAO_CLIENTE"_s), QString());
    EXPECT_EQ(mundo.database.sent.size(), 3) << "each asks anew";
}

TEST(AcessoDados, NewKeysOfFirebird) {
    World mundo;
    mundo.connect();
    EXPECT_EQ(ProximoGenerator(mundo.contexto, "gen_Pess"), 0);
    EXPECT_EQ(mundo.database.sent,
              QStringList(u"select gen_id(gen_Pess, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = 'GEN_PESS'; "_s));
    mundo.database.answer(u"RDB$GENERATORS"_s, {{u"GEN_ID"_s}, {{number(70000)}}});
    EXPECT_EQ(ProximoGenerator(mundo.contexto, "GEN_PESS"), 70000);
}

TEST(AcessoDados, NewKeysOfSqlServer) {
    World mundo;
    mundo.connect(u"MS-SQL"_s);
    EXPECT_EQ(UltimoIdentity(mundo.contexto), 0);
    EXPECT_EQ(mundo.database.sent, QStringList(u"SELECT @@IDENTITY AS 'MAXROWID'"_s));
    mundo.database.answer(u"@@IDENTITY"_s, {{u"MAXROWID"_s}, {{number(70000)}}});
    EXPECT_EQ(UltimoIdentity(mundo.contexto), 70000);
    mundo.database.answer(u"@@IDENTITY"_s, {{u"MAXROWID"_s}, {{null()}}});
    EXPECT_EQ(UltimoIdentity(mundo.contexto), 0);
}

TEST(AcessoDados, ColourSchemes) {
    World mundo;
    mundo.connect();
    LeCoresSistema(mundo.contexto, u" Azul "_s);
    EXPECT_EQ(mundo.database.sent, QStringList(u"SELECT * FROM COR_SIST WHERE DESC_COR_SIST = 'AZUL'"_s));
    EXPECT_EQ(mundo.contexto.CorFundo1, u"-2147483633"_s);
    EXPECT_EQ(mundo.contexto.CorFrente1, u"-2147483630"_s);
    EXPECT_EQ(mundo.contexto.CorFundo2, u"-2147483633"_s);
    EXPECT_EQ(mundo.contexto.CorFrente2, u"-2147483630"_s);
    mundo.database.answer(u"COR_SIST"_s,
                          {{u"CODI_BACK_0001"_s, u"CODI_FORE_0001"_s, u"CODI_BACK_0002"_s, u"CODI_FORE_0002"_s},
                           {{number(1), text("2"), number(3), number(4)}}});
    LeCoresSistema(mundo.contexto, u"AZUL"_s);
    EXPECT_EQ(QStringList({mundo.contexto.CorFundo1, mundo.contexto.CorFrente1, mundo.contexto.CorFundo2,
                           mundo.contexto.CorFrente2}),
              QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
}

TEST(AcessoDados, ASchemePaintsByKind) {
    struct Tela : screen::Screen {
        explicit Tela(screen::Program& program) : Screen(program, u"frmTeste"_s) {}
        screen::Label rotulo{this, "lblA"};
        screen::Button botao{this, "cmdA"};
        screen::TextField texto{this, "txtA"};
        screen::Check caixa{this, "chkA"};
        screen::Option opcao{this, "opA", {}, "g"};
        screen::MaskedField mascara{this, "mskA"};
        screen::ListField lista{this, "cboA"};
        screen::Grid grade{this, "FlexA"};
    };
    World mundo;
    Tela tela(mundo.program);
    mundo.contexto.CorFundo1 = u"12632256"_s;
    mundo.contexto.CorFrente1 = u"255"_s;
    AplicaCoresForm(mundo.contexto, tela);
    EXPECT_EQ(tela.background(), 12632256);
    EXPECT_EQ(tela.rotulo.foreground(), 255);
    for (const screen::Field* campo :
         std::initializer_list<screen::Field*>{&tela.rotulo, &tela.botao, &tela.texto, &tela.caixa, &tela.opcao})
        EXPECT_EQ(campo->background(), 12632256) << campo->name();
    for (const screen::Field* campo :
         std::initializer_list<screen::Field*>{&tela.botao, &tela.texto, &tela.caixa, &tela.opcao})
        EXPECT_EQ(campo->foreground(), screen::colour::WindowText) << campo->name();
    for (const screen::Field* campo : std::initializer_list<screen::Field*>{&tela.mascara, &tela.lista, &tela.grade})
        EXPECT_EQ(campo->background(), screen::colour::Free) << campo->name();
}

TEST(AcessoDados, ClosingTheMainConnection) {
    World mundo;
    EXPECT_TRUE(mundo.run([&] { FechaServidor(mundo.contexto, u"SAIR"_s); })) << "without a connection nothing happens";
    mundo.connect();
    EXPECT_TRUE(mundo.run([&] { FechaServidor(mundo.contexto, {}); }));
    EXPECT_EQ(mundo.contexto.ConexaoPrincipal, nullptr);
    EXPECT_EQ(mundo.database.sent, QStringList(u"CLOSE"_s));
    mundo.connect();
    EXPECT_FALSE(mundo.run([&] { FechaServidor(mundo.contexto, u"SAIR"_s); }));
    EXPECT_TRUE(mundo.platform.boxes.empty());
    EXPECT_EQ(mundo.program.exitCode(), 0);
}

TEST(AcessoDados, ATransactionDiesWithTheProcess) {
    World mundo;
    mundo.connect();
    mundo.database.fail(u"update"_s, errorNumber::StatementRefused);
    EXPECT_FALSE(mundo.run([&] {
        mundo.contexto.principal().BeginTrans();
        Executa(mundo.contexto, data::Statement("update pess set x=1"));
        mundo.contexto.principal().CommitTrans();
    }));
    EXPECT_EQ(mundo.database.sent, QStringList({u"BEGIN"_s, u"UPDATE PESS SET X=1"_s, u"CLOSE"_s}));
    EXPECT_EQ(mundo.contexto.ConexaoPrincipal, nullptr);
    EXPECT_EQ(mundo.program.exitCode(), 1);
}
