#include "base/Literals.h"
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
    RealFiles() { QDir(dir.path()).mkdir(u"config"_s); }
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
struct Machine : WorldOn<Platform> {
    bool connects(void (*routine)(ContextoExecucao&) = ConectaServidor) {
        this->contexto.Ambiente = u"HIST"_s;
        return this->run([&] { routine(this->contexto); });
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
        maquina.platform.write(u"config/server_aplic.ini"_s, "\r\n");
        maquina.platform.write(u"config/server.ini"_s, texto);
        maquina.platform.write(u"config/paths.ini"_s, "a^b^/fotos/^\r\n");
        EXPECT_TRUE(maquina.connects()) << nome;
        ASSERT_EQ(maquina.database.opened.size(), 1u) << nome;
        EXPECT_EQ(maquina.database.opened[0].connectionString, u"hé"_s) << nome;
        EXPECT_EQ(maquina.contexto.Servidor, u"São"_s) << nome;
        EXPECT_TRUE(maquina.contexto.PreservaAcentos) << nome;
        EXPECT_EQ(maquina.contexto.CaminhoImagens, u"/fotos/"_s) << nome;
    }
}

TEST(Arquivos, TheConfiguredFolderMayBeWrittenWithBackSlashes) {
    Machine<RealFiles> maquina;
    QDir(maquina.platform.dir.path()).mkpath(u"erp/config"_s);
    QString raiz = maquina.platform.dir.path();
    maquina.platform.write(u"config/server_aplic.ini"_s, raiz.replace(u'/', u'\\').toUtf8() + "\\^erp\\^\n");
    maquina.platform.write(u"erp/config/server.ini"_s, "P\nH^^^^FIREBIRD^configurado^0\n");
    maquina.platform.write(u"config/server.ini"_s, "P\nH^^^^FIREBIRD^fixo^0\n");
    EXPECT_TRUE(maquina.connects());
    ASSERT_EQ(maquina.database.opened.size(), 1u);
    EXPECT_EQ(maquina.database.opened[0].connectionString, u"configurado"_s);
}

TEST(Arquivos, ABadFileNameIsTriedAgainAtTheFixedPlace) {
    Machine<BadNames> maquina;
    maquina.platform.files = {
        {u"/vorta/config/server_aplic.ini"_s, {u"/srv/^erp/^"_s}},
        {u"/srv/erp/config/server.ini"_s, {u"x"_s}},
        {u"/srv/erp/config/server_cep.ini"_s, {u"x"_s}},
        {u"/srv/erp/config/paths.ini"_s, {u"x"_s}},
        {u"/vorta/config/server.ini"_s, {u"p"_s, u"S^B^u^s^FIREBIRD^fixo^0"_s}},
        {u"/vorta/config/server_cep.ini"_s, {u"S^B^u^s^FIREBIRD^cep^0"_s}},
        {u"/vorta/config/paths.ini"_s, {u"1^2^/fotos/"_s}},
    };
    maquina.platform.bad = {u"/srv/erp/config/server.ini"_s, u"/srv/erp/config/server_cep.ini"_s,
                            u"/srv/erp/config/paths.ini"_s};
    EXPECT_TRUE(maquina.connects());
    EXPECT_TRUE(maquina.connects(ConectaServidorCEP));
    ASSERT_EQ(maquina.database.opened.size(), 2u);
    EXPECT_EQ(maquina.database.opened[0].connectionString, u"fixo"_s);
    EXPECT_EQ(maquina.database.opened[1].connectionString, u"cep"_s);
    EXPECT_EQ(maquina.contexto.CaminhoImagens, u"/fotos/"_s);
    EXPECT_EQ(maquina.contexto.ArquivoPaths, u"/vorta/config/paths.ini"_s);
}

TEST(Arquivos, AServerAplicOfABadNameGivesNoFolder) {
    Machine<BadNames> maquina;
    maquina.platform.files = {{u"/vorta/config/server_aplic.ini"_s, {u"/srv/^erp/^"_s}}};
    maquina.platform.bad = {u"/vorta/config/server_aplic.ini"_s};
    maquina.contexto.RaizAplicacao = u"velha"_s;
    maquina.contexto.PastaAplicacao = u"velha"_s;
    EXPECT_TRUE(maquina.program.dispatch([&] { LeServerAplic(maquina.contexto); }));
    EXPECT_EQ(maquina.contexto.RaizAplicacao, QString());
    EXPECT_EQ(maquina.contexto.PastaAplicacao, QString());
    EXPECT_TRUE(maquina.platform.boxes.empty());
}
