#include "launch/ConectaServidor.h"

#include "base/CampoDelimitado.h"
#include "base/Journal.h"
#include "base/Literals.h"
#include "base/ServerLine.h"
#include "base/Text.h"
#include "data/EngineTags.h"
#include "launch/Lancamento.h"

#include <array>

namespace vorta {

namespace {

using data::ConnectionStringOf;
using data::EngineTag;
using data::FindEngineTag;
using screen::Buttons;
using screen::Icon;

/// Environments in the order of the lines of "server.ini"; an empty one counts as the first.
constexpr std::array<QStringView, 3> ambientes{u"PRD", u"HIST", u"DEV"};

QString pastaFixa(const ContextoExecucao& contexto) {
    return contexto.platform().home() + u"/config/"_s;
}

/// The configured place of a configuration file, or its fixed place when nothing is configured or no file stands there.
QString caminhoConfiguracao(const ContextoExecucao& contexto, const QString& arquivo) {
    const QString prefixo = contexto.RaizAplicacao + contexto.PastaAplicacao;
    const QString configurado = prefixo + u"config\\"_s + arquivo;
    if (prefixo.isEmpty() || !contexto.platform().fileExists(configurado))
        return pastaFixa(contexto) + arquivo;
    return configurado;
}

/// The lines of a configuration file; a bad file name is answered by one more try at the fixed place.
QStringList linhasDe(const ContextoExecucao& contexto, QString& caminho, const QString& arquivo, int maximo) {
    try {
        return contexto.platform().readLines(caminho, maximo);
    } catch (const RuntimeError& error) {
        if (error.number() != errorNumber::BadFileName)
            throw;
        caminho = pastaFixa(contexto) + arquivo;
        return contexto.platform().readLines(caminho, maximo);
    }
}

/// A seventh field that is no boolean leaves the fields taken and raises 13.
void tomaCampos(ContextoExecucao& contexto, const ServerLine& linha) {
    contexto.Servidor = linha.server;
    contexto.BaseDados = linha.database;
    contexto.UsuarioBanco = linha.user;
    contexto.SenhaBanco = linha.password;
    contexto.TipoBanco = linha.engine;
    contexto.StringConexaoFirebird = linha.firebirdConnection;
    contexto.PreservaAcentos = ToBoolean(linha.keepsAccents);
    contexto.TipoBanco = linha.tag();
}

void abre(ContextoExecucao& contexto, const EngineTag& tag, const ServerLine& linha,
          std::unique_ptr<data::Connection>& conexao) {
    if (!conexao)
        conexao = contexto.novaConexao();
    if (tag.timeout)
        conexao->ConnectionTimeout = *tag.timeout;
    conexao->Open(tag.engine, ConnectionStringOf(tag, linha));
}

/// The boxes say the same whatever the reason, or nothing at all; who looks after the program finds it in the journal.
void anota(const ContextoExecucao& contexto, const QString& arquivo, const RuntimeError& error) {
    Journal(
        u"%1 (servidor %2, base %3): %4"_s.arg(arquivo, contexto.Servidor, contexto.BaseDados, error.description()));
}

[[noreturn]] void encerraSemConteudo(ContextoExecucao& contexto) {
    contexto.program().MsgBox({u"Conteúdo do Arquivo NÃO Encontrado!\nContate o seu Desenvolvedor para "
                               "posicionar a falha de Conexão!"_s,
                               u"Falha de Conexão com o Servidor"_s, Icon::None, Buttons::OK});
    contexto.program().End();
}

[[noreturn]] void encerraSemResposta(ContextoExecucao& contexto, const QString& texto) {
    contexto.program().MsgBox({texto, {}, Icon::Critical, Buttons::OK});
    contexto.program().End();
}

QString linhaDoAmbiente(const QString& ambiente, const QStringList& linhas) {
    for (size_t indice = 0; indice < ambientes.size(); ++indice)
        if (ambiente == ambientes[indice] || (indice == 0 && ambiente.isEmpty()))
            return Trim(linhas.value(static_cast<qsizetype>(indice)));
    return {};
}

void abrePrincipal(ContextoExecucao& contexto) {
    const QString arquivo = u"server.ini"_s;
    QString caminho = caminhoConfiguracao(contexto, arquivo);
    const QStringList linhas = linhasDe(contexto, caminho, arquivo, static_cast<int>(ambientes.size()));
    const QString texto = linhaDoAmbiente(contexto.Ambiente, linhas);
    if (texto.isEmpty())
        encerraSemConteudo(contexto);
    const ServerLine linha(texto);
    tomaCampos(contexto, linha);
    if (const EngineTag* tag = FindEngineTag(contexto.TipoBanco)) {
        if (tag->hasForm())
            contexto.StringConexao = ConnectionStringOf(*tag, linha);
        abre(contexto, *tag, linha, contexto.ConexaoPrincipal);
    }
    LePaths(contexto);
}

void abreCep(ContextoExecucao& contexto) {
    const QString arquivo = u"server_cep.ini"_s;
    QString caminho = caminhoConfiguracao(contexto, arquivo);
    const QString texto = Trim(linhasDe(contexto, caminho, arquivo, 1).value(0));
    if (texto.isEmpty())
        encerraSemConteudo(contexto);
    const ServerLine linha(texto);
    tomaCampos(contexto, linha);
    const EngineTag* tag = FindEngineTag(contexto.TipoBanco);
    if (tag && tag->postalCode)
        abre(contexto, *tag, linha, contexto.ConexaoCEP);
}

} // namespace

void ConectaServidor(ContextoExecucao& contexto) {
    LeServerAplic(contexto);
    try {
        abrePrincipal(contexto);
    } catch (const RuntimeError& error) {
        anota(contexto, u"server.ini"_s, error);
        if (error.number() == errorNumber::ConnectionFailed)
            encerraSemResposta(contexto, u"O Servidor de dados não está respondendo.\n\nVerifique se o "
                                         "servidor NT/SQL/LINUX (%1) está ligado.\nO Ambiente "
                                         "selecionado () pode não estar configurado!"_s.arg(contexto.Servidor));
    }
}

void ConectaServidorCEP(ContextoExecucao& contexto) {
    LeServerAplic(contexto);
    try {
        abreCep(contexto);
    } catch (const RuntimeError& error) {
        anota(contexto, u"server_cep.ini"_s, error);
        if (error.number() == errorNumber::ConnectionFailed)
            encerraSemResposta(contexto, u"O Servidor CEP de dados não está respondendo.\n\nVerifique se "
                                         "o servidor NT/SQL/Linux (%1) está ligado."_s.arg(contexto.Servidor));
    }
}

void FechaServidorCEP(ContextoExecucao& contexto) {
    if (!contexto.ConexaoCEP)
        return;
    try {
        contexto.ConexaoCEP->Close();
        contexto.ConexaoCEP.reset();
    } catch (const RuntimeError&) {
        // A postal-code search that could not close its connection has already given its result.
    }
}

void LeServerAplic(ContextoExecucao& contexto) {
    const QString caminho = pastaFixa(contexto) + u"server_aplic.ini"_s;
    if (!contexto.platform().fileExists(caminho)) {
        contexto.program().MsgBox(
            {u"Há Problemas de Configuração do Aplicativo VORTA!\nContate o Administrador do Sistema e "
             "informe este fato, identificado\no motivo [Falta do Arquivo Server_Aplic]!"_s,
             ContextoExecucao::Titulo(), Icon::Critical, Buttons::OK});
        contexto.program().End();
    }
    try {
        const QString linha = Trim(contexto.platform().readLines(caminho, 1).value(0));
        contexto.RaizAplicacao = linha.isEmpty() ? QString() : Trim(CampoDaLinha(linha, 1));
        contexto.PastaAplicacao = linha.isEmpty() ? QString() : Trim(CampoDaLinha(linha, 2));
    } catch (const RuntimeError& error) {
        Journal(u"server_aplic.ini: %1"_s.arg(error.description()));
        if (error.number() != errorNumber::BadFileName)
            return;
        contexto.RaizAplicacao.clear();
        contexto.PastaAplicacao.clear();
    }
}

void LePaths(ContextoExecucao& contexto) {
    using Campo = QString ContextoExecucao::*;
    static constexpr std::array<Campo, 12> campos{
        &ContextoExecucao::Caminho01,       &ContextoExecucao::Caminho02,
        &ContextoExecucao::CaminhoImagens,  &ContextoExecucao::CaminhoImagensDetalhe,
        &ContextoExecucao::ExtensaoImagens, &ContextoExecucao::ExtensaoImagensDetalhe,
        &ContextoExecucao::ImagemSemFoto,   &ContextoExecucao::Caminho08,
        &ContextoExecucao::Caminho09,       &ContextoExecucao::CaminhoPaginas,
        &ContextoExecucao::Caminho11,       &ContextoExecucao::Caminho12};
    try {
        const QString arquivo = u"paths.ini"_s;
        contexto.ArquivoPaths = caminhoConfiguracao(contexto, arquivo);
        const QString linha = Trim(linhasDe(contexto, contexto.ArquivoPaths, arquivo, 1).value(0));
        for (size_t indice = 0; indice < campos.size(); ++indice)
            contexto.*campos[indice] = Trim(CampoDaLinha(linha, static_cast<qint16>(indice + 1)));
        const QString codigo = LeCodigoEmpresa(contexto, QString::number(contexto.CodigoEmpresa));
        contexto.CaminhoDanfe = LeCaminhoDanfe(contexto, codigo);
        if (Trim(contexto.CaminhoDanfe).isEmpty())
            contexto.CaminhoDanfe = u"C:\\Vorta\\DANFE\\"_s;
    } catch (const RuntimeError& error) {
        // Whatever could not be read stays unset; the launch goes on without it.
        Journal(u"paths.ini: %1"_s.arg(error.description()));
    }
}

} // namespace vorta
