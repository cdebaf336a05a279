#include "launch/ConectaServidor.h"
#include "base/Literals.h"

#include "LaunchWorld.h"
#include "data/EngineTags.h"

using namespace vorta;
using namespace vorta::test;

namespace {

bool connects(LaunchWorld& world, const QString& ambiente = u"PRD"_s) {
    world.contexto.Ambiente = ambiente;
    world.contexto.CodigoEmpresa = 1;
    return world.run([&] { ConectaServidor(world.contexto); });
}

bool connectsCep(LaunchWorld& world) {
    return world.run([&] { ConectaServidorCEP(world.contexto); });
}

/// What a tag opens: its engine, its text and its wait.
struct Etiqueta {
    const char* tag;
    data::Engine motor;
    int espera;
    const char* texto;
    bool cep;
};

constexpr int esperaPadrao = 15;
const std::vector<Etiqueta> etiquetas{
    {"MS-SQL", data::Engine::SqlServer, 400, "driver={SQL Server};server=SRV;uid=sysdba;pwd=segredo;database=BASE",
     true},
    {"MSSQL", data::Engine::SqlServer, 400, "driver={SQL Server};server=SRV;uid=sysdba;pwd=segredo;database=BASE",
     true},
    {"MS-SQL2005WEB", data::Engine::SqlServer, 400,
     "Provider=SQLNCLI;Server=SRV;Database=BASE;Uid=sysdba; Pwd=segredo;", false},
    {"MS-SQL2008WEB", data::Engine::SqlServer, 400,
     "Provider=SQLNCLI10;Server=SRV;Database=BASE;Uid=sysdba; Pwd=segredo;", false},
    {"MS-SQL-REMOTO", data::Engine::SqlServer, esperaPadrao,
     "Provider=sqloledb;Network Library=DBMSSOCN;Data Source=SRV;Initial Catalog=BASE;User ID=sysdba; Password=segredo",
     false},
    {"FIREBIRD", data::Engine::Firebird, 400, "localhost:/base/%1.fdb", true},
};

} // namespace

TEST(ConectaServidor, EachTagOpensItsOwnWay) {
    EXPECT_EQ(data::EngineTags().size(), etiquetas.size());
    for (const Etiqueta& etiqueta : etiquetas) {
        LaunchWorld world(QString::fromUtf8(etiqueta.tag));
        EXPECT_TRUE(connects(world)) << etiqueta.tag;
        ASSERT_EQ(world.database.opened.size(), 1u) << etiqueta.tag;
        const QString texto = QString::fromUtf8(etiqueta.texto).replace(u"%1"_s, u"prd"_s);
        EXPECT_EQ(world.database.opened[0].engine, etiqueta.motor) << etiqueta.tag;
        EXPECT_EQ(world.database.opened[0].connectionString, texto) << etiqueta.tag;
        EXPECT_EQ(world.database.opened[0].timeout, etiqueta.espera) << etiqueta.tag;
        EXPECT_EQ(world.contexto.TipoBanco, QString::fromUtf8(etiqueta.tag));
        EXPECT_EQ(world.contexto.isFirebird(), etiqueta.motor == data::Engine::Firebird);
        EXPECT_EQ(world.contexto.StringConexao, world.contexto.isFirebird() ? QString() : texto) << etiqueta.tag;
        EXPECT_TRUE(world.platform.boxes.empty());
    }
}

TEST(ConectaServidor, PercentSignsInAPasswordStayAsTheyAre) {
    LaunchWorld world;
    world.lines(u"server.ini"_s) = {u"S%4^B%1^u%3^p%2^MSSQL^^0"_s};
    EXPECT_TRUE(connects(world));
    EXPECT_EQ(world.database.opened[0].connectionString,
              u"driver={SQL Server};server=S%4;uid=u%3;pwd=p%2;database=B%1"_s);
}

TEST(ConectaServidor, TheLineIsThatOfTheEnvironment) {
    const std::vector<std::pair<const char*, const char*>> casos{
        {"PRD", "prd"}, {"", "prd"}, {"HIST", "hist"}, {"DEV", "dev"}};
    for (const auto& [ambiente, base] : casos) {
        LaunchWorld world;
        EXPECT_TRUE(connects(world, QString::fromUtf8(ambiente)));
        EXPECT_EQ(world.database.opened.at(0).connectionString,
                  u"localhost:/base/"_s + QString::fromUtf8(base) + u".fdb"_s);
    }
}

TEST(ConectaServidor, FieldsAreStoredAsTheyStandAndTheLineIsTrimmed) {
    LaunchWorld world;
    world.lines(u"server.ini"_s) = {u"  SRV ^ BASE^u ^ s^^ ^True^ "_s};
    EXPECT_TRUE(connects(world));
    EXPECT_EQ(world.contexto.Servidor, u"SRV "_s);
    EXPECT_EQ(world.contexto.BaseDados, u" BASE"_s);
    EXPECT_EQ(world.contexto.UsuarioBanco, u"u "_s);
    EXPECT_EQ(world.contexto.SenhaBanco, u" s"_s);
    EXPECT_EQ(world.contexto.TipoBanco, u"MS-SQL"_s) << "an empty tag";
    EXPECT_EQ(world.contexto.StringConexaoFirebird, u" "_s);
    EXPECT_TRUE(world.contexto.PreservaAcentos);
}

TEST(ConectaServidor, AnEmptyOrMissingLineEndsTheProcess) {
    const std::vector<std::pair<QStringList, const char*>> casos{
        {{u"SRV^B^u^s^MSSQL^^0"_s, u"SRV^B^u^s^MSSQL^^0"_s}, "DEV"},
        {{u"   "_s, u"x"_s}, "PRD"},
        {{}, "PRD"},
        {{u"a"_s, u"b"_s, u"c"_s, u"d"_s}, "prd"},
        {{u"a"_s, u"b"_s, u"c"_s, u"d"_s}, "."},
    };
    for (const auto& [linhas, ambiente] : casos) {
        LaunchWorld world;
        world.lines(u"server.ini"_s) = linhas;
        EXPECT_FALSE(connects(world, QString::fromUtf8(ambiente))) << ambiente;
        EXPECT_EQ(world.box().title, u"Falha de Conexão com o Servidor"_s);
        EXPECT_EQ(world.box().text,
                  u"Conteúdo do Arquivo NÃO Encontrado!\nContate o seu Desenvolvedor para posicionar a "
                  "falha de Conexão!"_s);
        EXPECT_EQ(world.box().icon, screen::Icon::None);
        EXPECT_TRUE(world.database.opened.empty());
        EXPECT_EQ(world.program.exitCode(), 0);
    }
}

TEST(ConectaServidor, AServerThatDoesNotAnswerEndsTheProcess) {
    LaunchWorld world(u"MS-SQL"_s);
    world.database.refuseOpen = true;
    EXPECT_FALSE(connects(world, u"HIST"_s));
    EXPECT_EQ(world.box().text,
              u"O Servidor de dados não está respondendo.\n\nVerifique se o servidor NT/SQL/LINUX (SRV) está "
              "ligado.\nO Ambiente selecionado () pode não estar configurado!"_s);
    EXPECT_EQ(world.box().title, QString());
    EXPECT_EQ(world.box().icon, screen::Icon::Critical);
    EXPECT_EQ(world.program.exitCode(), 0);
}

TEST(ConectaServidor, OtherFailuresReturnWithoutAWord) {
    const std::vector<std::pair<const char*, QStringList>> casos{
        {"unknown tag", {u"SRV^B^u^s^ORACLE^^False"_s}},
        {"tag in lower case", {u"SRV^B^u^s^firebird^x^False"_s}},
        {"no seventh field", {u"SRV^B^u^s^FIREBIRD^x"_s}},
        {"empty seventh field", {u"SRV^B^u^s^FIREBIRD^x^^"_s}},
        {"seventh field no boolean", {u"SRV^B^u^s^FIREBIRD^x^talvez"_s}},
    };
    for (const auto& [nome, linhas] : casos) {
        LaunchWorld world;
        world.lines(u"server.ini"_s) = linhas;
        EXPECT_TRUE(connects(world)) << nome;
        EXPECT_TRUE(world.platform.boxes.empty()) << nome;
        EXPECT_TRUE(world.database.opened.empty()) << nome;
        EXPECT_EQ(ErrorOf([&] { world.contexto.principal(); }), errorNumber::ObjectNotSet) << nome;
    }
    LaunchWorld semArquivo;
    semArquivo.platform.files.remove(u"/vorta/config/server.ini"_s);
    EXPECT_TRUE(connects(semArquivo));
    EXPECT_TRUE(semArquivo.platform.boxes.empty());
    EXPECT_TRUE(semArquivo.database.opened.empty());
    EXPECT_EQ(semArquivo.contexto.ArquivoPaths, QString()) << "the paths are not read";
}

TEST(ConectaServidor, TheSeventhFieldIsABoolean) {
    const std::vector<std::pair<const char*, bool>> casos{
        {"True", true}, {"False", false}, {"1", true}, {"0", false}, {"true", true}};
    for (const auto& [texto, preserva] : casos) {
        LaunchWorld world;
        world.lines(u"server.ini"_s) = {u"S^B^u^s^FIREBIRD^x^"_s + QString::fromUtf8(texto)};
        EXPECT_TRUE(connects(world));
        EXPECT_EQ(world.contexto.PreservaAcentos, preserva) << texto;
        EXPECT_EQ(world.database.opened.size(), 1u) << texto;
    }
}

TEST(ConectaServidor, TheConfiguredFolderComesBeforeTheFixedOne) {
    LaunchWorld world;
    world.lines(u"server_aplic.ini"_s) = {u" /srv/ ^ erp\\ ^"_s};
    world.platform.files[u"/srv/erp/config/server.ini"_s] = {u"S^B^u^s^FIREBIRD^configurado^False"_s};
    EXPECT_TRUE(connects(world));
    EXPECT_EQ(world.contexto.RaizAplicacao, u"/srv/"_s);
    EXPECT_EQ(world.contexto.PastaAplicacao, u"erp\\"_s);
    EXPECT_EQ(world.database.opened.at(0).connectionString, u"configurado"_s);
    EXPECT_EQ(world.contexto.ArquivoPaths, u"/vorta/config/paths.ini"_s) << "paths.ini stands at the fixed place only";
    world.platform.files[u"/srv/erp/config/paths.ini"_s] = {u"outra^^/fotos/"_s};
    world.run([&] { LePaths(world.contexto); });
    EXPECT_EQ(world.contexto.ArquivoPaths, u"/srv/erp/config\\paths.ini"_s.replace(u"erp/config"_s, u"erp\\config"_s));
    EXPECT_EQ(world.contexto.CaminhoImagens, u"/fotos/"_s);
}

TEST(ConectaServidor, AMissingServerAplicEndsTheProcess) {
    for (const bool cep : {false, true}) {
        LaunchWorld world;
        world.platform.files.remove(u"/vorta/config/server_aplic.ini"_s);
        EXPECT_FALSE(cep ? connectsCep(world) : connects(world));
        EXPECT_EQ(world.box().title, ContextoExecucao::Titulo());
        EXPECT_EQ(world.box().text,
                  u"Há Problemas de Configuração do Aplicativo VORTA!\nContate o Administrador do Sistema e "
                  "informe este fato, identificado\no motivo [Falta do Arquivo Server_Aplic]!"_s);
        EXPECT_EQ(world.box().icon, screen::Icon::Critical);
        EXPECT_TRUE(world.database.opened.empty());
    }
}

TEST(LePaths, TwelveFieldsAndTheFolderOfTheCompany) {
    LaunchWorld world;
    world.database.answer(u"SELECT PATH_DANFE"_s, {{u"PATH_DANFE"_s}, {{text("/danfe/")}}});
    EXPECT_TRUE(connects(world));
    const ContextoExecucao& c = world.contexto;
    EXPECT_EQ(QStringList({c.Caminho01, c.Caminho02, c.CaminhoImagens, c.CaminhoImagensDetalhe, c.ExtensaoImagens,
                           c.ExtensaoImagensDetalhe, c.ImagemSemFoto, c.Caminho08, c.Caminho09, c.CaminhoPaginas,
                           c.Caminho11, c.Caminho12, c.CaminhoDanfe}),
              QStringList({u"1"_s, u"2"_s, u"/img/"_s, u"/grande/"_s, u".jpg"_s, u".png"_s, u"/img/sem.jpg"_s, u"8"_s,
                           u"9"_s, u"/paginas/"_s, u"11"_s, u"12"_s, u"/danfe/"_s}));
}

TEST(LePaths, FieldsThatAreNotThereAreAPointAndTheDanfeFolderHasADefault) {
    for (const auto& resposta :
         {FakeRows{}, FakeRows{{u"PATH_DANFE"_s}, {{null()}}}, FakeRows{{u"PATH_DANFE"_s}, {{text("  ")}}}}) {
        LaunchWorld world;
        world.lines(u"paths.ini"_s) = {u" a ^ b ^ c ^ d ^ e "_s, u"a second line^is^not^read"_s};
        world.database.answer(u"SELECT PATH_DANFE"_s, resposta);
        EXPECT_TRUE(connects(world));
        EXPECT_EQ(world.contexto.Caminho01, u"a"_s);
        EXPECT_EQ(world.contexto.ExtensaoImagens, u"e"_s);
        EXPECT_EQ(world.contexto.ExtensaoImagensDetalhe, u"."_s);
        EXPECT_EQ(world.contexto.ImagemSemFoto, u"."_s);
        EXPECT_EQ(world.contexto.CaminhoDanfe, u"C:\\Vorta\\DANFE\\"_s);
    }
}

TEST(LePaths, AMissingFileOrAFailingLookupIsNoFailureOfTheLaunch) {
    LaunchWorld semArquivo;
    semArquivo.platform.files.remove(u"/vorta/config/paths.ini"_s);
    EXPECT_TRUE(connects(semArquivo));
    EXPECT_EQ(semArquivo.contexto.CaminhoImagens, QString());
    EXPECT_EQ(semArquivo.contexto.CaminhoDanfe, QString());
    EXPECT_TRUE(semArquivo.platform.boxes.empty());
    for (const int erro : {errorNumber::StatementRefused, errorNumber::ConnectionFailed}) {
        LaunchWorld world;
        world.database.fail(u"EMPR"_s, erro);
        EXPECT_TRUE(connects(world));
        EXPECT_EQ(world.contexto.CaminhoImagens, u"/img/"_s);
        EXPECT_EQ(world.contexto.CaminhoDanfe, QString());
        EXPECT_TRUE(world.platform.boxes.empty());
    }
}

TEST(ConectaServidorCEP, KnowsThreeTagsOnly) {
    for (const Etiqueta& etiqueta : etiquetas) {
        LaunchWorld world(QString::fromUtf8(etiqueta.tag));
        EXPECT_TRUE(connectsCep(world)) << etiqueta.tag;
        EXPECT_TRUE(world.platform.boxes.empty()) << etiqueta.tag;
        ASSERT_EQ(world.database.opened.size(), etiqueta.cep ? 1u : 0u) << etiqueta.tag;
        if (!etiqueta.cep) {
            EXPECT_EQ(ErrorOf([&] { world.contexto.cep(); }), errorNumber::ObjectNotSet);
            continue;
        }
        EXPECT_EQ(world.database.opened[0].connectionString,
                  QString::fromUtf8(etiqueta.texto).replace(u"%1"_s, u"cep"_s));
        EXPECT_EQ(world.database.opened[0].timeout, 400);
        EXPECT_EQ(world.contexto.ConexaoPrincipal, nullptr);
    }
}

TEST(ConectaServidorCEP, OverwritesTheConnectionFieldsForGood) {
    LaunchWorld world;
    EXPECT_TRUE(connects(world));
    world.lines(u"server_cep.ini"_s) = {u"SRVCEP^CEP^u2^s2^^fb^True"_s, u"ignored"_s};
    EXPECT_TRUE(connectsCep(world));
    FechaServidorCEP(world.contexto);
    EXPECT_EQ(world.contexto.ConexaoCEP, nullptr);
    EXPECT_EQ(world.contexto.Servidor, u"SRVCEP"_s);
    EXPECT_EQ(world.contexto.BaseDados, u"CEP"_s);
    EXPECT_EQ(world.contexto.UsuarioBanco, u"u2"_s);
    EXPECT_EQ(world.contexto.SenhaBanco, u"s2"_s);
    EXPECT_EQ(world.contexto.TipoBanco, u"MS-SQL"_s);
    EXPECT_EQ(world.contexto.StringConexaoFirebird, u"fb"_s);
    EXPECT_TRUE(world.contexto.PreservaAcentos);
    EXPECT_NE(world.contexto.ConexaoPrincipal, nullptr);
    EXPECT_TRUE(world.contexto.ConexaoPrincipal->IsOpen());
    EXPECT_EQ(world.database.sent.count(u"CLOSE"_s), 1);
    FechaServidorCEP(world.contexto); // nothing is open any more
}

TEST(ConectaServidorCEP, ItsFailures) {
    LaunchWorld vazio;
    vazio.lines(u"server_cep.ini"_s) = {u"  "_s};
    EXPECT_FALSE(connectsCep(vazio));
    EXPECT_EQ(vazio.box().title, u"Falha de Conexão com o Servidor"_s);

    LaunchWorld silent;
    silent.database.refuseOpen = true;
    EXPECT_FALSE(connectsCep(silent));
    EXPECT_EQ(silent.box().text,
              u"O Servidor CEP de dados não está respondendo.\n\nVerifique se o servidor NT/SQL/Linux (SRV) está "
              "ligado."_s);
    EXPECT_EQ(silent.box().icon, screen::Icon::Critical);
    EXPECT_EQ(silent.box().title, QString());

    LaunchWorld semArquivo;
    semArquivo.platform.files.remove(u"/vorta/config/server_cep.ini"_s);
    EXPECT_TRUE(connectsCep(semArquivo));
    EXPECT_TRUE(semArquivo.platform.boxes.empty());
    EXPECT_TRUE(semArquivo.database.opened.empty());
}

TEST(ConectaServidorCEP, TheConfiguredFolderComesFirst) {
    LaunchWorld world;
    world.lines(u"server_aplic.ini"_s) = {u"/srv/^^"_s};
    world.platform.files[u"/srv/config/server_cep.ini"_s] = {u"S^B^u^s^FIREBIRD^configurado^False"_s};
    EXPECT_TRUE(connectsCep(world));
    EXPECT_EQ(world.database.opened.at(0).connectionString, u"configurado"_s);
}
