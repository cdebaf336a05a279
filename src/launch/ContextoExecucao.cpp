#include "launch/ContextoExecucao.h"

#include "base/Literals.h"
#include "base/Text.h"

#include <QScopeGuard>
#include <algorithm>
#include <array>
#include <variant>

namespace vorta {

namespace {

using C = ContextoExecucao;
using Membro = std::variant<QString C::*, qint16 C::*, qint32 C::*, bool C::*, data::Statement C::*>;

struct CampoContexto {
    const char* nome;
    Membro membro;
};

/// Every field that another program of the ERP, or a scenario, may name.
constexpr std::array campos{
    CampoContexto{"LinhaComando", &C::LinhaComando},
    CampoContexto{"CodigoUsuario", &C::CodigoUsuario},
    CampoContexto{"CodigoEmpresa", &C::CodigoEmpresa},
    CampoContexto{"Ambiente", &C::Ambiente},
    CampoContexto{"SomenteConsulta", &C::SomenteConsulta},
    CampoContexto{"NomeUsuario", &C::NomeUsuario},
    CampoContexto{"CodigoEmpresaTexto", &C::CodigoEmpresaTexto},
    CampoContexto{"TipoBanco", &C::TipoBanco},
    CampoContexto{"StringConexao", &C::StringConexao},
    CampoContexto{"Servidor", &C::Servidor},
    CampoContexto{"BaseDados", &C::BaseDados},
    CampoContexto{"UsuarioBanco", &C::UsuarioBanco},
    CampoContexto{"SenhaBanco", &C::SenhaBanco},
    CampoContexto{"StringConexaoFirebird", &C::StringConexaoFirebird},
    CampoContexto{"PreservaAcentos", &C::PreservaAcentos},
    CampoContexto{"RaizAplicacao", &C::RaizAplicacao},
    CampoContexto{"PastaAplicacao", &C::PastaAplicacao},
    CampoContexto{"ArquivoPaths", &C::ArquivoPaths},
    CampoContexto{"Caminho01", &C::Caminho01},
    CampoContexto{"Caminho02", &C::Caminho02},
    CampoContexto{"CaminhoImagens", &C::CaminhoImagens},
    CampoContexto{"CaminhoImagensDetalhe", &C::CaminhoImagensDetalhe},
    CampoContexto{"ExtensaoImagens", &C::ExtensaoImagens},
    CampoContexto{"ExtensaoImagensDetalhe", &C::ExtensaoImagensDetalhe},
    CampoContexto{"ImagemSemFoto", &C::ImagemSemFoto},
    CampoContexto{"Caminho08", &C::Caminho08},
    CampoContexto{"Caminho09", &C::Caminho09},
    CampoContexto{"CaminhoPaginas", &C::CaminhoPaginas},
    CampoContexto{"Caminho11", &C::Caminho11},
    CampoContexto{"Caminho12", &C::Caminho12},
    CampoContexto{"CaminhoDanfe", &C::CaminhoDanfe},
    CampoContexto{"SqlConsulta", &C::SqlConsulta},
    CampoContexto{"SqlComando", &C::SqlComando},
    CampoContexto{"SqlLeitura", &C::SqlLeitura},
    CampoContexto{"SqlHistorico", &C::SqlHistorico},
    CampoContexto{"CorFundo1", &C::CorFundo1},
    CampoContexto{"CorFrente1", &C::CorFrente1},
    CampoContexto{"CorFundo2", &C::CorFundo2},
    CampoContexto{"CorFrente2", &C::CorFrente2},
    CampoContexto{"ModoTela", &C::ModoTela},
    CampoContexto{"TelaChamadora", &C::TelaChamadora},
    CampoContexto{"EnderecoAlvoCep", &C::EnderecoAlvoCep},
    CampoContexto{"ListaCamposCep", &C::ListaCamposCep},
    CampoContexto{"TipoConsulta", &C::TipoConsulta},
    CampoContexto{"VinculoAtual", &C::VinculoAtual},
    CampoContexto{"RetornoPesquisa", &C::RetornoPesquisa},
    CampoContexto{"TopoGridBusca", &C::TopoGridBusca},
    CampoContexto{"IdPessoaVinculo", &C::IdPessoaVinculo},
    CampoContexto{"ImagemProduto", &C::ImagemProduto},
    CampoContexto{"ImagemProdutoDetalhe", &C::ImagemProdutoDetalhe},
    CampoContexto{"UltimaFormaBusca", &C::UltimaFormaBusca},
    CampoContexto{"UltimoConteudoBusca", &C::UltimoConteudoBusca},
    CampoContexto{"UltimoTextoBusca", &C::UltimoTextoBusca},
    CampoContexto{"UltimoVisualiza", &C::UltimoVisualiza},
    CampoContexto{"UltimoPapelBusca", &C::UltimoPapelBusca},
    CampoContexto{"UltimaFormaProduto", &C::UltimaFormaProduto},
    CampoContexto{"UltimoTextoProduto", &C::UltimoTextoProduto},
    CampoContexto{"UltimoVisualizaProduto", &C::UltimoVisualizaProduto},
    CampoContexto{"UltimaColecaoProduto", &C::UltimaColecaoProduto},
};

const CampoContexto& acha(const QString& nome) {
    const auto found = std::find_if(campos.begin(), campos.end(), [&](const CampoContexto& campo) {
        return nome.compare(QLatin1StringView(campo.nome), Qt::CaseInsensitive) == 0;
    });
    if (found == campos.end())
        throw RuntimeError(errorNumber::NoSuchMember, u"O contexto não tem o campo %1"_s.arg(nome));
    return *found;
}

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

} // namespace

ContextoExecucao::ContextoExecucao(screen::Program& program, data::AdapterFactory adapters, data::StatementTrace trace)
    : program_(program), adapters_(std::move(adapters)), trace_(std::move(trace)) {
    program_.onEnd = [this] {
        ConexaoCEP.reset();
        ConexaoPrincipal.reset();
    };
}

ContextoExecucao::~ContextoExecucao() {
    program_.onEnd = {};
}

QString ContextoExecucao::Titulo() {
    return u"ERP VORTA - Nexoria - Release 2015.07.24"_s;
}

QString ContextoExecucao::Campo(const QString& nome) const {
    return std::visit(Overloaded{
                          [&](QString C::*membro) { return this->*membro; },
                          [&](qint16 C::*membro) { return QString::number(this->*membro); },
                          [&](qint32 C::*membro) { return QString::number(this->*membro); },
                          [&](bool C::*membro) { return this->*membro ? u"True"_s : u"False"_s; },
                          [&](data::Statement C::*membro) { return (this->*membro).text(); },
                      },
                      acha(nome).membro);
}

void ContextoExecucao::GravaCampo(const QString& nome, const QString& texto) {
    std::visit(Overloaded{
                   [&](QString C::*membro) { this->*membro = texto; },
                   [&](qint16 C::*membro) { this->*membro = ToInt16(ToNumber(texto)); },
                   [&](qint32 C::*membro) { this->*membro = ToInt32(ToNumber(texto)); },
                   [&](bool C::*membro) { this->*membro = ToBoolean(texto); },
                   [&](data::Statement C::*membro) {
                       (this->*membro).clear();
                       this->*membro += texto;
                   },
               },
               acha(nome).membro);
}

data::Connection& ContextoExecucao::principal() const {
    if (!ConexaoPrincipal)
        throw RuntimeError(errorNumber::ObjectNotSet);
    return *ConexaoPrincipal;
}

data::Connection& ContextoExecucao::cep() const {
    if (!ConexaoCEP)
        throw RuntimeError(errorNumber::ObjectNotSet);
    return *ConexaoCEP;
}

std::unique_ptr<data::Connection> ContextoExecucao::novaConexao() const {
    const auto rastro = [this](const QString& comando) {
        if (rastreia_)
            trace_(comando);
    };
    return std::make_unique<data::Connection>(adapters_,
                                              trace_ ? data::StatementTrace(rastro) : data::StatementTrace());
}

void ContextoExecucao::ForaDoRastro(const std::function<void()>& leitura) {
    rastreia_ = false;
    const auto volta = qScopeGuard([this] { rastreia_ = true; });
    leitura();
}

void ContextoExecucao::RegistraTela(const QString& nome, FabricaTela fabrica) {
    fabricas_[nome] = std::move(fabrica);
}

bool ContextoExecucao::ConheceTela(const QString& nome) const {
    return fabricas_.contains(nome);
}

QStringList ContextoExecucao::NomesTelas() const {
    QStringList nomes;
    for (const auto& [nome, fabrica] : fabricas_)
        nomes << nome;
    return nomes;
}

screen::Screen& ContextoExecucao::Tela(const QString& nome) {
    const auto fabrica = fabricas_.find(nome);
    if (fabrica == fabricas_.end())
        throw RuntimeError(errorNumber::ObjectNotSet, u"A tela %1 não existe neste programa"_s.arg(nome));
    std::unique_ptr<screen::Screen>& tela = telas_[nome];
    if (!tela)
        tela = fabrica->second(*this);
    return *tela;
}

void ContextoExecucao::MostraTela(const QString& nome) {
    const auto tela = telas_.find(nome);
    if (tela != telas_.end() && usadas_[nome] && !tela->second->isLoaded())
        telas_.erase(tela);
    usadas_[nome] = true;
    program_.ShowModal(Tela(nome));
}

} // namespace vorta
