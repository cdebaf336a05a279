#include "launch/AcessoDados.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

TEST(AcessoDados, ReadsGoInCapitalsOrAsWritten) {
    World world;
    world.connect();
    const QString nome = u"João"_s;
    AbreLeitura(world.contexto, data::Statement() << "select * from pess where nome='" << nome << "'");
    AbreLeituraComoEscrita(world.contexto, data::Statement() << "select * from pess where nome='" << nome << "'");
    EXPECT_EQ(world.database.sent,
              QStringList({u"SELECT * FROM PESS WHERE NOME='JOÃO'"_s, u"select * from pess where nome='João'"_s}));
    EXPECT_TRUE(world.database.writes.isEmpty());
}

TEST(AcessoDados, WritesGoInCapitals) {
    World world;
    world.connect();
    Executa(world.contexto, data::Statement() << "update pess set nome='" << u"João"_s << "'");
    EXPECT_EQ(world.database.writes, QStringList(u"UPDATE PESS SET NOME='JOÃO'"_s));
}

TEST(AcessoDados, WithoutAConnectionEveryStatementFails) {
    World world;
    EXPECT_EQ(ErrorOf([&] { AbreLeitura(world.contexto, data::Statement("select 1")); }), errorNumber::ObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { Executa(world.contexto, data::Statement("delete")); }), errorNumber::ObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { LeParametroEmpresa(world.contexto, u"X"_s); }), errorNumber::ObjectNotSet);
}

TEST(AcessoDados, CompanySwitches) {
    World world;
    world.connect();
    EXPECT_EQ(LeParametroEmpresa(world.contexto, u"Pess_Botao_Cliente  "_s), QString());
    EXPECT_EQ(world.database.sent, QStringList(u"SELECT * FROM EMPR_CNFG WHERE NOME_PARA='PESS_BOTAO_CLIENTE'"_s));
    world.database.answer(u"EMPR_CNFG"_s, {{u"nome_para"_s, u"valo_para"_s}, {{text("x"), text("n ")}}});
    EXPECT_EQ(LeParametroEmpresa(world.contexto, u"PESS_BOTAO_CLIENTE"_s), u"n "_s);
    world.database.answer(u"EMPR_CNFG"_s, {{u"valo_para"_s}, {{null()}}});
    EXPECT_EQ(LeParametroEmpresa(world.contexto, u"PESS_BOTAO_CLIENTE"_s), QString());
    EXPECT_EQ(world.database.sent.size(), 3) << "each asks anew";
}

TEST(AcessoDados, NewKeysOfFirebird) {
    World world;
    world.connect();
    EXPECT_EQ(ProximoGenerator(world.contexto, "gen_Pess"), 0);
    EXPECT_EQ(world.database.sent,
              QStringList(u"select gen_id(gen_Pess, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = 'GEN_PESS'; "_s));
    world.database.answer(u"RDB$GENERATORS"_s, {{u"GEN_ID"_s}, {{number(70000)}}});
    EXPECT_EQ(ProximoGenerator(world.contexto, "GEN_PESS"), 70000);
}

TEST(AcessoDados, NewKeysOfSqlServer) {
    World world;
    world.connect(u"MS-SQL"_s);
    EXPECT_EQ(UltimoIdentity(world.contexto), 0);
    EXPECT_EQ(world.database.sent, QStringList(u"SELECT @@IDENTITY AS 'MAXROWID'"_s));
    world.database.answer(u"@@IDENTITY"_s, {{u"MAXROWID"_s}, {{number(70000)}}});
    EXPECT_EQ(UltimoIdentity(world.contexto), 70000);
    world.database.answer(u"@@IDENTITY"_s, {{u"MAXROWID"_s}, {{null()}}});
    EXPECT_EQ(UltimoIdentity(world.contexto), 0);
}

TEST(AcessoDados, ColourSchemes) {
    World world;
    world.connect();
    LeCoresSistema(world.contexto, u" Azul "_s);
    EXPECT_EQ(world.database.sent, QStringList(u"SELECT * FROM COR_SIST WHERE DESC_COR_SIST = 'AZUL'"_s));
    EXPECT_EQ(world.contexto.CorFundo1, u"-2147483633"_s);
    EXPECT_EQ(world.contexto.CorFrente1, u"-2147483630"_s);
    EXPECT_EQ(world.contexto.CorFundo2, u"-2147483633"_s);
    EXPECT_EQ(world.contexto.CorFrente2, u"-2147483630"_s);
    world.database.answer(u"COR_SIST"_s,
                          {{u"CODI_BACK_0001"_s, u"CODI_FORE_0001"_s, u"CODI_BACK_0002"_s, u"CODI_FORE_0002"_s},
                           {{number(1), text("2"), number(3), number(4)}}});
    LeCoresSistema(world.contexto, u"AZUL"_s);
    EXPECT_EQ(QStringList({world.contexto.CorFundo1, world.contexto.CorFrente1, world.contexto.CorFundo2,
                           world.contexto.CorFrente2}),
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
    World world;
    Tela tela(world.program);
    world.contexto.CorFundo1 = u"12632256"_s;
    world.contexto.CorFrente1 = u"255"_s;
    AplicaCoresForm(world.contexto, tela);
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
    World world;
    EXPECT_TRUE(world.run([&] { FechaServidor(world.contexto, u"SAIR"_s); })) << "without a connection nothing happens";
    world.connect();
    EXPECT_TRUE(world.run([&] { FechaServidor(world.contexto, {}); }));
    EXPECT_EQ(world.contexto.ConexaoPrincipal, nullptr);
    EXPECT_EQ(world.database.sent, QStringList(u"CLOSE"_s));
    world.connect();
    EXPECT_FALSE(world.run([&] { FechaServidor(world.contexto, u"SAIR"_s); }));
    EXPECT_TRUE(world.platform.boxes.empty());
    EXPECT_EQ(world.program.exitCode(), 0);
}

TEST(AcessoDados, ATransactionDiesWithTheProcess) {
    World world;
    world.connect();
    world.database.fail(u"update"_s, errorNumber::StatementRefused);
    EXPECT_FALSE(world.run([&] {
        world.contexto.principal().BeginTrans();
        Executa(world.contexto, data::Statement("update pess set x=1"));
        world.contexto.principal().CommitTrans();
    }));
    EXPECT_EQ(world.database.sent, QStringList({u"BEGIN"_s, u"UPDATE PESS SET X=1"_s, u"CLOSE"_s}));
    EXPECT_EQ(world.contexto.ConexaoPrincipal, nullptr);
    EXPECT_EQ(world.program.exitCode(), 1);
    EXPECT_EQ(world.failure(), errorNumber::StatementRefused);
}
