#include "launch/ConectaServidor.h"

#include "LaunchWorld.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace vorta;
using namespace vorta::test;

namespace {

/// The files of a real folder; boxes and clock are those of the test.
struct RealFiles : TestPlatform {
    QTemporaryDir dir;
    RealFiles() { QDir(dir.path()).mkdir(u"config"_qs); }
    QString home() const override { return dir.path(); }
    bool fileExists(const QString& path) const override { return Platform::fileExists(path); }
    QStringList readLines(const QString& path, int most) const override { return Platform::readLines(path, most); }
    void write(const QString& name, const QByteArray& bytes) const {
        QFile file(dir.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << name;
        file.write(bytes);
    }
};

/// A place that is a file and yet cannot be opened by its name.
struct BadNames : TestPlatform {
    QStringList bad;
    QStringList readLines(const QString& path, int most) const override {
        if (bad.contains(localPath(path)))
            throw RuntimeError(errorNumber::BadFileName);
        return TestPlatform::readLines(path, most);
    }
};

template <class Platform>
struct Machine {
    Platform platform;
    screen::Program program{platform};
    FakeDatabase database;
    ContextoExecucao contexto{program, database.factory()};
    bool connect(void (*routine)(ContextoExecucao&) = ConectaServidor) {
        contexto.Ambiente = QStringLiteral("HIST");
        return program.dispatch([&] { routine(contexto); });
    }
};

} // namespace

TEST(Arquivos, ConfigurationOfEveryKindOfTextFile) {
    const std::vector<std::pair<const char*, QByteArray>> textos{
        {"UTF-8, LF", "P^^^^FIREBIRD^p^0\nS\xC3\xA3o^^^^FIREBIRD^h\xC3\xA9^1^\nD\n"},
        {"UTF-8, CRLF", "P^^^^FIREBIRD^p^0\r\nS\xC3\xA3o^^^^FIREBIRD^h\xC3\xA9^1^\r\nD\r\n"},
        {"UTF-8 with its mark", "\xEF\xBB\xBFP^^^^FIREBIRD^p^0\nS\xC3\xA3o^^^^FIREBIRD^h\xC3\xA9^1^"},
        {"Windows-1252, CRLF", "P^^^^FIREBIRD^p^0\r\nS\xE3o^^^^FIREBIRD^h\xE9^1^\r\n"},
        {"Windows-1252, LF", "P^^^^FIREBIRD^p^0\n  S\xE3o^^^^FIREBIRD^h\xE9^1^  \n"},
    };
    for (const auto& [nome, texto] : textos) {
        Machine<RealFiles> maquina;
        maquina.platform.write(u"config/server_aplic.ini"_qs, "\r\n");
        maquina.platform.write(u"config/server.ini"_qs, texto);
        maquina.platform.write(u"config/paths.ini"_qs, "a^b^/fotos/^\r\n");
        EXPECT_TRUE(maquina.connect()) << nome;
        ASSERT_EQ(maquina.database.opened.size(), 1u) << nome;
        EXPECT_EQ(maquina.database.opened[0].connectionString, u"hé"_qs) << nome;
        EXPECT_EQ(maquina.contexto.Servidor, u"São"_qs) << nome;
        EXPECT_TRUE(maquina.contexto.PreservaAcentos) << nome;
        EXPECT_EQ(maquina.contexto.CaminhoImagens, u"/fotos/"_qs) << nome;
    }
}

TEST(Arquivos, TheConfiguredFolderMayBeWrittenWithBackSlashes) {
    Machine<RealFiles> maquina;
    QDir(maquina.platform.dir.path()).mkpath(u"erp/config"_qs);
    QString raiz = maquina.platform.dir.path();
    maquina.platform.write(u"config/server_aplic.ini"_qs, raiz.replace(u'/', u'\\').toUtf8() + "\\^erp\\^\n");
    maquina.platform.write(u"erp/config/server.ini"_qs, "P\nH^^^^FIREBIRD^configurado^0\n");
    maquina.platform.write(u"config/server.ini"_qs, "P\nH^^^^FIREBIRD^fixo^0\n");
    EXPECT_TRUE(maquina.connect());
    ASSERT_EQ(maquina.database.opened.size(), 1u);
    EXPECT_EQ(maquina.database.opened[0].connectionString, u"configurado"_qs);
}

TEST(Arquivos, ABadFileNameIsTriedAgainAtTheFixedPlace) {
    Machine<BadNames> maquina;
    maquina.platform.files = {
        {u"/vorta/config/server_aplic.ini"_qs, {u"/srv/^erp/^"_qs}},
        {u"/srv/erp/config/server.ini"_qs, {u"x"_qs}},
        {u"/srv/erp/config/server_cep.ini"_qs, {u"x"_qs}},
        {u"/srv/erp/config/paths.ini"_qs, {u"x"_qs}},
        {u"/vorta/config/server.ini"_qs, {u"p"_qs, u"S^B^u^s^FIREBIRD^fixo^0"_qs}},
        {u"/vorta/config/server_cep.ini"_qs, {u"S^B^u^s^FIREBIRD^cep^0"_qs}},
        {u"/vorta/config/paths.ini"_qs, {u"1^2^/fotos/"_qs}},
    };
    maquina.platform.bad = {u"/srv/erp/config/server.ini"_qs, u"/srv/erp/config/server_cep.ini"_qs,
                            u"/srv/erp/config/paths.ini"_qs};
    EXPECT_TRUE(maquina.connect());
    EXPECT_TRUE(maquina.connect(ConectaServidorCEP));
    ASSERT_EQ(maquina.database.opened.size(), 2u);
    EXPECT_EQ(maquina.database.opened[0].connectionString, u"fixo"_qs);
    EXPECT_EQ(maquina.database.opened[1].connectionString, u"cep"_qs);
    EXPECT_EQ(maquina.contexto.CaminhoImagens, u"/fotos/"_qs);
    EXPECT_EQ(maquina.contexto.ArquivoPaths, u"/vorta/config/paths.ini"_qs);
}

TEST(Arquivos, AServerAplicOfABadNameGivesNoFolder) {
    Machine<BadNames> maquina;
    maquina.platform.files = {{u"/vorta/config/server_aplic.ini"_qs, {u"/srv/^erp/^"_qs}}};
    maquina.platform.bad = {u"/vorta/config/server_aplic.ini"_qs};
    maquina.contexto.RaizAplicacao = u"velha"_qs;
    maquina.contexto.PastaAplicacao = u"velha"_qs;
    EXPECT_TRUE(maquina.program.dispatch([&] { LeServerAplic(maquina.contexto); }));
    EXPECT_EQ(maquina.contexto.RaizAplicacao, QString());
    EXPECT_EQ(maquina.contexto.PastaAplicacao, QString());
    EXPECT_TRUE(maquina.platform.boxes.empty());
}
