#pragma once

#include "data/Recordset.h"
#include "screen/Program.h"
#include "screen/Screen.h"

#include <functional>
#include <map>
#include <memory>

namespace vorta {

/// The one record of a running register: what the launch brought, the configuration, the connections, the statement
/// buffers, the traffic between screens, and one instance of each screen. Every screen reads and writes it directly and
/// keeps no copy of its own.
class ContextoExecucao {
  public:
    ContextoExecucao(screen::Program& program, data::AdapterFactory adapters, data::StatementTrace trace = {});
    ~ContextoExecucao();

    /// Title of the title bar and of most message boxes.
    static QString Titulo();

    // Launch and identity.
    QString LinhaComando;     ///< the launch string in force
    qint16 CodigoUsuario = 0; ///< goes as text into every `user_incl` and `user_desa`
    qint16 CodigoEmpresa = 0;
    QString Ambiente;             ///< "PRD", "HIST" or "DEV"; empty counts as "PRD"
    bool SomenteConsulta = false; ///< the start screen then offers no writing button
    QString NomeUsuario;
    QString CodigoEmpresaTexto; ///< the `codi_empr` most recently looked up

    // Connection.
    QString TipoBanco; ///< engine tag; statements know only "FIREBIRD" and all the rest
    QString StringConexao;
    QString Servidor;
    QString BaseDados;
    QString UsuarioBanco;
    QString SenhaBanco;
    QString StringConexaoFirebird;
    bool PreservaAcentos = false;
    std::unique_ptr<data::Connection> ConexaoPrincipal; ///< created on first use, lives as long as the process
    std::unique_ptr<data::Connection> ConexaoCEP;       ///< lives for one postal-code search

    // Configuration.
    QString RaizAplicacao;
    QString PastaAplicacao;
    QString ArquivoPaths;
    QString Caminho01;
    QString Caminho02;
    QString CaminhoImagens;
    QString CaminhoImagensDetalhe;
    QString ExtensaoImagens;
    QString ExtensaoImagensDetalhe;
    QString ImagemSemFoto;
    QString Caminho08;
    QString Caminho09;
    QString CaminhoPaginas;
    QString Caminho11;
    QString Caminho12;
    QString CaminhoDanfe;

    // Statement buffers: scratch, emptied by each routine that assembles.
    data::Statement SqlConsulta;
    data::Statement SqlComando;
    data::Statement SqlLeitura;
    data::Statement SqlHistorico;
    data::Recordset RecordsetComum;

    // Screen colours, decimal texts.
    QString CorFundo1;
    QString CorFrente1;
    QString CorFundo2;
    QString CorFrente2;

    // Traffic between screens.
    QString ModoTela; ///< "I" while including, "A" while altering, else idle
    QString TelaChamadora;
    QString EnderecoAlvoCep; ///< "COML", "COBR" or "ENTG"
    QString ListaCamposCep;
    QString TipoConsulta;
    QString VinculoAtual; ///< "S" lets the role lookups reach deactivated rows
    QString RetornoPesquisa;
    qint32 TopoGridBusca = 0;
    QString IdPessoaVinculo;
    QString ImagemProduto;
    QString ImagemProdutoDetalhe;
    QString UltimaFormaBusca;
    QString UltimoConteudoBusca;
    QString UltimoTextoBusca;
    QString UltimoVisualiza;
    QString UltimoPapelBusca;
    QString UltimaFormaProduto;
    QString UltimoTextoProduto;
    QString UltimoVisualizaProduto;
    QString UltimaColecaoProduto;

    /// A field by its name (case-insensitive), as other programs of the ERP reach it; raises 438 for an unknown name,
    /// 13 or 6 for a text that the field cannot hold.
    QString Campo(const QString& nome) const;
    void GravaCampo(const QString& nome, const QString& texto);

    /// A person's sheet as a page of HTML. Set by the register, which alone knows all screens.
    std::function<QString(const QString& idpess)> FichaPessoa;

    screen::Program& program() const { return program_; }
    screen::Platform& platform() const { return program_.platform(); }
    /// Today on the client machine.
    QDate hoje() const { return platform().now().date(); }
    bool isFirebird() const { return TipoBanco == u"FIREBIRD"; }

    /// The main connection; raises 91 before it has been made.
    data::Connection& principal() const;
    /// The postal-code connection; raises 91 before it has been made.
    data::Connection& cep() const;
    /// A connection of the installed engines whose statements are traced.
    std::unique_ptr<data::Connection> novaConexao() const;
    /// Does a reading that is no part of any flow: its statements stay out of the trace.
    void ForaDoRastro(const std::function<void()>& leitura);

    using FabricaTela = std::function<std::unique_ptr<screen::Screen>(ContextoExecucao&)>;
    /// Makes a screen known by its name; its instance is made at its first use.
    void RegistraTela(const QString& nome, FabricaTela fabrica);
    bool ConheceTela(const QString& nome) const;
    QStringList NomesTelas() const;
    /// The screen's instance, made when there is none; raises 91 naming the screen when no such screen is known.
    screen::Screen& Tela(const QString& nome);
    /// Shows a screen modally and waits. One that was closed before comes up anew.
    void MostraTela(const QString& nome);

  private:
    screen::Program& program_;
    data::AdapterFactory adapters_;
    data::StatementTrace trace_;
    bool rastreia_ = true;
    struct SemCaixa {
        bool operator()(const QString& a, const QString& b) const { return a.compare(b, Qt::CaseInsensitive) < 0; }
    };
    std::map<QString, FabricaTela, SemCaixa> fabricas_;
    std::map<QString, std::unique_ptr<screen::Screen>, SemCaixa> telas_;
    std::map<QString, bool, SemCaixa> usadas_; ///< shown before, so that the next opening makes the screen anew
};

} // namespace vorta
