#include "launch/ConectaServidor.h"
#include "base/Literals.h"

#include "LaunchWorld.h"
#include "data/EngineTags.h"

using namespace vorta;
using namespace vorta::test;

namespace {

bool conecta(LaunchWorld& mundo, const QString& ambiente = u"PRD"_s) {
    mundo.contexto.Ambiente = ambiente;
    mundo.contexto.CodigoEmpresa = 1;
    return mundo.run([&] { ConectaServidor(mundo.contexto); });
}

bool conectaCep(LaunchWorld& mundo) {
    return mundo.run([&] { ConectaServidorCEP(mundo.contexto); });
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
        LaunchWorld mundo(QString::fromUtf8(etiqueta.tag));
        EXPECT_TRUE(conecta(mundo)) << etiqueta.tag;
        ASSERT_EQ(mundo.database.opened.size(), 1u) << etiqueta.tag;
        const QString texto = QString::fromUtf8(etiqueta.texto).replace(u"%1"_s, u"prd"_s);
        EXPECT_EQ(mundo.database.opened[0].engine, etiqueta.motor) << etiqueta.tag;
        EXPECT_EQ(mundo.database.opened[0].connectionString, texto) << etiqueta.tag;
        EXPECT_EQ(mundo.database.opened[0].timeout, etiqueta.espera) << etiqueta.tag;
        EXPECT_EQ(mundo.contexto.TipoBanco, QString::fromUtf8(etiqueta.tag));
        EXPECT_EQ(mundo.contexto.isFirebird(), etiqueta.motor == data::Engine::Firebird);
        EXPECT_EQ(mundo.contexto.StringConexao, mundo.contexto.isFirebird() ? QString() : texto) << etiqueta.tag;
        EXPECT_TRUE(mundo.platform.boxes.empty());
    }
}

TEST(ConectaServidor, PercentSignsInAPasswordStayAsTheyAre) {
    LaunchWorld mundo;
    mundo.linhas(u"server.ini"_s) = {u"S%4^B%1^u%3^p%2^MSSQL^^0"_s};
    EXPECT_TRUE(conecta(mundo));
    EXPECT_EQ(mundo.database.opened[0].connectionString,
              u"driver={SQL Server};server=S%4;uid=u%3;pwd=p%2;database=B%1"_s);
}

TEST(ConectaServidor, TheLineIsThatOfTheEnvironment) {
    const std::vector<std::pair<const char*, const char*>> casos{
        {"PRD", "prd"}, {"", "prd"}, {"HIST", "hist"}, {"DEV", "dev"}};
    for (const auto& [ambiente, base] : casos) {
        LaunchWorld mundo;
        EXPECT_TRUE(conecta(mundo, QString::fromUtf8(ambiente)));
        EXPECT_EQ(mundo.database.opened.at(0).connectionString,
                  u"localhost:/base/"_s + QString::fromUtf8(base) + u".fdb"_s);
    }
}

TEST(ConectaServidor, FieldsAreStoredAsTheyStandAndTheLineIsTrimmed) {
    LaunchWorld mundo;
    mundo.linhas(u"server.ini"_s) = {u"  SRV ^ BASE^u ^ s^^ ^True^ "_s};
    EXPECT_TRUE(conecta(mundo));
    EXPECT_EQ(mundo.contexto.Servidor, u"SRV "_s);
    EXPECT_EQ(mundo.contexto.BaseDados, u" BASE"_s);
    EXPECT_EQ(mundo.contexto.UsuarioBanco, u"u "_s);
    EXPECT_EQ(mundo.contexto.SenhaBanco, u" s"_s);
    EXPECT_EQ(mundo.contexto.TipoBanco, u"MS-SQL"_s) << "an empty tag";
    EXPECT_EQ(mundo.contexto.StringConexaoFirebird, u" "_s);
    EXPECT_TRUE(mundo.contexto.PreservaAcentos);
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
        LaunchWorld mundo;
        mundo.linhas(u"server.ini"_s) = linhas;
        EXPECT_FALSE(conecta(mundo, QString::fromUtf8(ambiente))) << ambiente;
        EXPECT_EQ(mundo.box().title, u"Falha de Conexão com o Servidor"_s);
        EXPECT_EQ(mundo.box().text,
                  u"Conteúdo do Arquivo NÃO Encontrado!\nContate o seu Desenvolvedor para posicionar a "
                  "falha de Conexão!"_s);
        EXPECT_EQ(mundo.box().icon, screen::Icon::None);
        EXPECT_TRUE(mundo.database.opened.empty());
        EXPECT_EQ(mundo.program.exitCode(), 0);
    }
}

TEST(ConectaServidor, AServerThatDoesNotAnswerEndsTheProcess) {
    LaunchWorld mundo(u"MS-SQL"_s);
    mundo.database.refuseOpen = true;
    EXPECT_FALSE(conecta(mundo, u"HIST"_s));
    EXPECT_EQ(mundo.box().text,
              u"O Servidor de dados não está respondendo.\n\nVerifique se o servidor NT/SQL/LINUX (SRV) está "
              "ligado.\nO Ambiente selecionado () pode não estar configurado!"_s);
    EXPECT_EQ(mundo.box().title, QString());
    EXPECT_EQ(mundo.box().icon, screen::Icon::Critical);
    EXPECT_EQ(mundo.program.exitCode(), 0);
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
        LaunchWorld mundo;
        mundo.linhas(u"server.ini"_s) = linhas;
        EXPECT_TRUE(conecta(mundo)) << nome;
        EXPECT_TRUE(mundo.platform.boxes.empty()) << nome;
        EXPECT_TRUE(mundo.database.opened.empty()) << nome;
        EXPECT_EQ(ErrorOf([&] { mundo.contexto.principal(); }), errorNumber::ObjectNotSet) << nome;
    }
    LaunchWorld semArquivo;
    semArquivo.platform.files.remove(u"/vorta/config/server.ini"_s);
    EXPECT_TRUE(conecta(semArquivo));
    EXPECT_TRUE(semArquivo.platform.boxes.empty());
    EXPECT_TRUE(semArquivo.database.opened.empty());
    EXPECT_EQ(semArquivo.contexto.ArquivoPaths, QString()) << "the paths are not read";
}

TEST(ConectaServidor, TheSeventhFieldIsABoolean) {
    const std::vector<std::pair<const char*, bool>> casos{
        {"True", true}, {"False", false}, {"1", true}, {"0", false}, {"true", true}};
    for (const auto& [texto, preserva] : casos) {
        LaunchWorld mundo;
        mundo.linhas(u"server.ini"_s) = {u"S^B^u^s^FIREBIRD^x^"_s + QString::fromUtf8(texto)};
        EXPECT_TRUE(conecta(mundo));
        EXPECT_EQ(mundo.contexto.PreservaAcentos, preserva) << texto;
        EXPECT_EQ(mundo.database.opened.size(), 1u) << texto;
    }
}

TEST(ConectaServidor, TheConfiguredFolderComesBeforeTheFixedOne) {
    LaunchWorld mundo;
    mundo.linhas(u"server_aplic.ini"_s) = {u" /srv/ ^ erp\\ ^"_s};
    mundo.platform.files[u"/srv/erp/config/server.ini"_s] = {u"S^B^u^s^FIREBIRD^configurado^False"_s};
    EXPECT_TRUE(conecta(mundo));
    EXPECT_EQ(mundo.contexto.RaizAplicacao, u"/srv/"_s);
    EXPECT_EQ(mundo.contexto.PastaAplicacao, u"erp\\"_s);
    EXPECT_EQ(mundo.database.opened.at(0).connectionString, u"configurado"_s);
    EXPECT_EQ(mundo.contexto.ArquivoPaths, u"/vorta/config/paths.ini"_s) << "paths.ini stands at the fixed place only";
    mundo.platform.files[u"/srv/erp/config/paths.ini"_s] = {u"outra^^/fotos/"_s};
    mundo.run([&] { LePaths(mundo.contexto); });
    EXPECT_EQ(mundo.contexto.ArquivoPaths, u"/srv/erp/config\\paths.ini"_s.replace(u"erp/config"_s, u"erp\\config"_s));
    EXPECT_EQ(mundo.contexto.CaminhoImagens, u"/fotos/"_s);
}

TEST(ConectaServidor, AMissingServerAplicEndsTheProcess) {
    for (const bool cep : {false, true}) {
        LaunchWorld mundo;
        mundo.platform.files.remove(u"/vorta/config/server_aplic.ini"_s);
        EXPECT_FALSE(cep ? conectaCep(mundo) : conecta(mundo));
        EXPECT_EQ(mundo.box().title, ContextoExecucao::Titulo());
        EXPECT_EQ(mundo.box().text,
                  u"Há Problemas de Configuração do Aplicativo VORTA!\nContate o Administrador do Sistema e "
                  "informe este fato, identificado\no motivo [Falta do Arquivo Server_Aplic]!"_s);
        EXPECT_EQ(mundo.box().icon, screen::Icon::Critical);
        EXPECT_TRUE(mundo.database.opened.empty());
    }
}

TEST(LePaths, TwelveFieldsAndTheFolderOfTheCompany) {
    LaunchWorld mundo;
    mundo.database.answer(u"SELECT PATH_DANFE"_s, {{u"PATH_DANFE"_s}, {{text("/danfe/")}}});
    EXPECT_TRUE(conecta(mundo));
    const ContextoExecucao& c = mundo.contexto;
    EXPECT_EQ(QStringList({c.Caminho01, c.Caminho02, c.CaminhoImagens, c.CaminhoImagensDetalhe, c.ExtensaoImagens,
                           c.ExtensaoImagensDetalhe, c.ImagemSemFoto, c.Caminho08, c.Caminho09, c.CaminhoPaginas,
                           c.Caminho11, c.Caminho12, c.CaminhoDanfe}),
              QStringList({u"1"_s, u"2"_s, u"/img/"_s, u"/grande/"_s, u".jpg"_s, u".png"_s, u"/img/sem.jpg"_s, u"8"_s,
                           u"9"_s, u"/paginas/"_s, u"11"_s, u"12"_s, u"/danfe/"_s}));
}

TEST(LePaths, FieldsThatAreNotThereAreAPointAndTheDanfeFolderHasADefault) {
    for (const auto& resposta :
         {FakeRows{}, FakeRows{{u"PATH_DANFE"_s}, {{null()}}}, FakeRows{{u"PATH_DANFE"_s}, {{text("  ")}}}}) {
        LaunchWorld mundo;
        mundo.linhas(u"paths.ini"_s) = {u" a ^ b ^ c ^ d ^ e "_s, u"a second line^is^not^read"_s};
        mundo.database.answer(u"SELECT PATH_DANFE"_s, resposta);
        EXPECT_TRUE(conecta(mundo));
        EXPECT_EQ(mundo.contexto.Caminho01, u"a"_s);
        EXPECT_EQ(mundo.contexto.ExtensaoImagens, u"e"_s);
        EXPECT_EQ(mundo.contexto.ExtensaoImagensDetalhe, u"."_s);
        EXPECT_EQ(mundo.contexto.ImagemSemFoto, u"."_s);
        EXPECT_EQ(mundo.contexto.CaminhoDanfe, u"C:\\Vorta\\DANFE\\"_s);
    }
}

TEST(LePaths, AMissingFileOrAFailingLookupIsNoFailureOfTheLaunch) {
    LaunchWorld semArquivo;
    semArquivo.platform.files.remove(u"/vorta/config/paths.ini"_s);
    EXPECT_TRUE(conecta(semArquivo));
    EXPECT_EQ(semArquivo.contexto.CaminhoImagens, QString());
    EXPECT_EQ(semArquivo.contexto.CaminhoDanfe, QString());
    EXPECT_TRUE(semArquivo.platform.boxes.empty());
    for (const int erro : {errorNumber::StatementRefused, errorNumber::ConnectionFailed}) {
        LaunchWorld mundo;
        mundo.database.fail(u"EMPR"_s, erro);
        EXPECT_TRUE(conecta(mundo));
        EXPECT_EQ(mundo.contexto.CaminhoImagens, u"/img/"_s);
        EXPECT_EQ(mundo.contexto.CaminhoDanfe, QString());
        EXPECT_TRUE(mundo.platform.boxes.empty());
    }
}

TEST(ConectaServidorCEP, KnowsThreeTagsOnly) {
    for (const Etiqueta& etiqueta : etiquetas) {
        LaunchWorld mundo(QString::fromUtf8(etiqueta.tag));
        EXPECT_TRUE(conectaCep(mundo)) << etiqueta.tag;
        EXPECT_TRUE(mundo.platform.boxes.empty()) << etiqueta.tag;
        ASSERT_EQ(mundo.database.opened.size(), etiqueta.cep ? 1u : 0u) << etiqueta.tag;
        if (!etiqueta.cep) {
            EXPECT_EQ(ErrorOf([&] { mundo.contexto.cep(); }), errorNumber::ObjectNotSet);
            continue;
        }
        EXPECT_EQ(mundo.database.opened[0].connectionString,
                  QString::fromUtf8(etiqueta.texto).replace(u"%1"_s, u"cep"_s));
        EXPECT_EQ(mundo.database.opened[0].timeout, 400);
        EXPECT_EQ(mundo.contexto.ConexaoPrincipal, nullptr);
    }
}

TEST(ConectaServidorCEP, OverwritesTheConnectionFieldsForGood) {
    LaunchWorld mundo;
    EXPECT_TRUE(conecta(mundo));
    mundo.linhas(u"server_cep.ini"_s) = {u"SRVCEP^CEP^u2^s2^^fb^True"_s, u"ignored"_s};
    EXPECT_TRUE(conectaCep(mundo));
    FechaServidorCEP(mundo.contexto);
    EXPECT_EQ(mundo.contexto.ConexaoCEP, nullptr);
    EXPECT_EQ(mundo.contexto.Servidor, u"SRVCEP"_s);
    EXPECT_EQ(mundo.contexto.BaseDados, u"CEP"_s);
    EXPECT_EQ(mundo.contexto.UsuarioBanco, u"u2"_s);
    EXPECT_EQ(mundo.contexto.SenhaBanco, u"s2"_s);
    EXPECT_EQ(mundo.contexto.TipoBanco, u"MS-SQL"_s);
    EXPECT_EQ(mundo.contexto.StringConexaoFirebird, u"fb"_s);
    EXPECT_TRUE(mundo.contexto.PreservaAcentos);
    EXPECT_NE(mundo.contexto.ConexaoPrincipal, nullptr);
    EXPECT_TRUE(mundo.contexto.ConexaoPrincipal->IsOpen());
    EXPECT_EQ(mundo.database.sent.count(u"CLOSE"_s), 1);
    FechaServidorCEP(mundo.contexto); // nothing is open any more
}

TEST(ConectaServidorCEP, ItsFailures) {
    LaunchWorld vazio;
    vazio.linhas(u"server_cep.ini"_s) = {u"  "_s};
    EXPECT_FALSE(conectaCep(vazio));
    EXPECT_EQ(vazio.box().title, u"Falha de Conexão com o Servidor"_s);

    LaunchWorld mudo;
    mudo.database.refuseOpen = true;
    EXPECT_FALSE(conectaCep(mudo));
    EXPECT_EQ(mudo.box().text,
              u"O Servidor CEP de dados não está respondendo.\n\nVerifique se o servidor NT/SQL/Linux (SRV) está "
              "ligado."_s);
    EXPECT_EQ(mudo.box().icon, screen::Icon::Critical);
    EXPECT_EQ(mudo.box().title, QString());

    LaunchWorld semArquivo;
    semArquivo.platform.files.remove(u"/vorta/config/server_cep.ini"_s);
    EXPECT_TRUE(conectaCep(semArquivo));
    EXPECT_TRUE(semArquivo.platform.boxes.empty());
    EXPECT_TRUE(semArquivo.database.opened.empty());
}

TEST(ConectaServidorCEP, TheConfiguredFolderComesFirst) {
    LaunchWorld mundo;
    mundo.linhas(u"server_aplic.ini"_s) = {u"/srv/^^"_s};
    mundo.platform.files[u"/srv/config/server_cep.ini"_s] = {u"S^B^u^s^FIREBIRD^configurado^False"_s};
    EXPECT_TRUE(conectaCep(mundo));
    EXPECT_EQ(mundo.database.opened.at(0).connectionString, u"configurado"_s);
}
