#include "launch/Lancamento.h"

#include "base/CampoDelimitado.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "launch/ConectaServidor.h"

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;

/// One column of the first row, empty text without a row or for a null.
QString LeColuna(ContextoExecucao& contexto, const Statement& comando, const char* coluna) {
    Recordset registros = AbreLeitura(contexto, comando);
    return registros.Eof() ? QString() : registros.Fields(coluna).textOr({});
}

/// Fields 1 to 4 of the launch string; a field that is not there arrives as ".".
void TomaLinhaComando(ContextoExecucao& contexto) {
    contexto.CodigoUsuario = ToInt16(Val(CampoDelimitado(1, contexto.LinhaComando)));
    contexto.CodigoEmpresa = ToInt16(Val(CampoDelimitado(2, contexto.LinhaComando)));
    contexto.Ambiente = CampoDelimitado(3, contexto.LinhaComando);
    contexto.SomenteConsulta = CampoDelimitado(4, contexto.LinhaComando) == u"True";
}

} // namespace

QString IdentificaInstalacao(const ContextoExecucao& contexto) {
    const QString marca = contexto.platform().home() + u"/config/ORBALUX.txt"_s;
    return contexto.platform().fileExists(marca) ? u"ORBALUX"_s : u"CLIENTE"_s;
}

void Lancamento(ContextoExecucao& contexto, screen::Screen& tela) {
    if (IdentificaInstalacao(contexto) == u"ORBALUX")
        contexto.LinhaComando = u"1^1^PRD^False^"_s;
    if (Trim(contexto.LinhaComando).isEmpty()) {
        contexto.program().MsgBox(u"Chamada Ilegal para esta rotina!"_s);
        contexto.program().End();
    }
    TomaLinhaComando(contexto);
    ConectaServidor(contexto);

    const QString empresa = QString::number(contexto.CodigoEmpresa);
    screen::Field& codigo = tela.field(u"lblCodiEmpresa"_s);
    codigo.setText(LeCodigoEmpresa(contexto, empresa));
    tela.field(u"lblNomeEmpresa"_s).setText(LeNomeEmpresa(contexto, empresa));
    tela.field(u"lblCodiAmbiente"_s).setText(contexto.Ambiente);
    LeUsuario(contexto, contexto.CodigoUsuario);
    CentralizaForm(tela);
    tela.setPlace(screen::Place::LeftBorder);
    tela.setCaption(ContextoExecucao::Titulo() + u" ("_s + contexto.Ambiente + u")("_s + codigo.text() + u'/' +
                    contexto.NomeUsuario + u')');
    if (contexto.Ambiente != u"PRD")
        tela.field(u"lblTituloJanela"_s).setForeground(screen::colour::Red);
}

void LeUsuario(ContextoExecucao& contexto, qint16 id) {
    contexto.SqlLeitura.clear();
    contexto.SqlLeitura << "SELECT * FROM USEN WHERE IDUSEN=" << id;
    try {
        contexto.NomeUsuario = LeColuna(contexto, contexto.SqlLeitura, "usen");
    } catch (const RuntimeError& error) {
        if (error.number() != errorNumber::ConnectionFailed)
            return;
        contexto.program().MsgBox(
            {u"Ocorreu uma Falha de Conexão com o Servidor de Banco de Dados (%1).\n"
             "Tente Novamente, Caso o Problema Persista, Contate o Desenvolvedor!"_s.arg(contexto.TipoBanco),
             u"Falha de Conexão (%1)"_s.arg(contexto.TipoBanco), screen::Icon::Critical, screen::Buttons::OK});
        FechaServidor(contexto, u"SAIR"_s);
    }
}

QString LeCodigoEmpresa(ContextoExecucao& contexto, const QString& id) {
    Statement comando;
    comando << "select codi_empr "
            << "from empr "
            << "where idempr = " << Trim(id);
    contexto.CodigoEmpresaTexto = LeColuna(contexto, comando, "codi_empr");
    return contexto.CodigoEmpresaTexto;
}

QString LeNomeEmpresa(ContextoExecucao& contexto, const QString& id) {
    Statement comando;
    comando << "select nome_conh_empr "
            << "from empr "
            << "where idempr = " << Trim(id);
    return LeColuna(contexto, comando, "nome_conh_empr");
}

QString LeCaminhoDanfe(ContextoExecucao& contexto, const QString& codigo) {
    Statement comando;
    comando << "select PATH_DANFE "
            << "from empr "
            << "where codi_empr = '" << Trim(codigo) << "'";
    return LeColuna(contexto, comando, "PATH_DANFE");
}

QString TituloTela(const ContextoExecucao& contexto, const QString& sufixo) {
    return ContextoExecucao::Titulo() + sufixo + u"(/"_s + contexto.NomeUsuario + u')';
}

void CentralizaForm(screen::Screen& tela) {
    tela.setPlace(screen::Place::Centre);
}

void AjustaLarguraLista(screen::ListField& lista, qint32 largura) {
    lista.setDropWidth(largura);
}

} // namespace vorta
