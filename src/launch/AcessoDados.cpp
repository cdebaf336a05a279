#include "launch/AcessoDados.h"

#include "base/Journal.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;
using screen::Colour;
using screen::FieldKind;

/// System colours for background and text, as decimal texts, of an unknown scheme.
const QString fundoDoSistema = u"-2147483633"_s;
const QString frenteDoSistema = u"-2147483630"_s;

Colour corDe(const QString& texto) {
    return ToInt32(Val(texto));
}

Recordset Abre(ContextoExecucao& contexto, const Statement& comando, const data::Reading& leitura) {
    Recordset registros;
    registros.Open(comando, contexto.principal(), leitura);
    return registros;
}

} // namespace

Recordset AbreLeitura(ContextoExecucao& contexto, const Statement& comando) {
    return AbreLeituraComoEscrita(contexto, comando.upper());
}

Recordset AbreLeitura(ContextoExecucao& contexto, const Statement& comando, std::vector<data::Piece> colunas) {
    return Abre(contexto, comando.upper(), {.columns = std::move(colunas)});
}

Recordset AbreLeituraLonga(ContextoExecucao& contexto, const Statement& comando, std::vector<data::Piece> colunas) {
    const auto mostra = [&contexto](qint64 lidos) { contexto.platform().progress(lidos, screen::unknownTotal); };
    Recordset registros = Abre(contexto, comando.upper(), {.columns = std::move(colunas), .fetched = mostra});
    // Behind a search that finds nothing comes no work that would end its progress.
    if (registros.Eof())
        contexto.platform().progress(0, 0);
    return registros;
}

Recordset AbrePassoLongo(ContextoExecucao& contexto, const Statement& comando, qint64 passo, qint64 passos) {
    const auto mostra = [&contexto, passo, passos](qint64) { contexto.platform().progress(passo, passos); };
    return Abre(contexto, comando.upper(), {.fetched = mostra});
}

Recordset AbreLeituraComoEscrita(ContextoExecucao& contexto, const Statement& comando) {
    return Abre(contexto, comando, {});
}

void Executa(ContextoExecucao& contexto, const Statement& comando) {
    contexto.principal().Execute(comando.upper());
}

QString LeParametroEmpresa(ContextoExecucao& contexto, const QString& nome) {
    Statement comando;
    comando << "select * from empr_cnfg where nome_para='" << RTrim(nome) << "'";
    Recordset registros = AbreLeitura(contexto, comando);
    return registros.Eof() ? QString() : registros.Fields("valo_para").textOr({});
}

bool InterruptorLigado(ContextoExecucao& contexto, const QString& nome) {
    bool ligado = false;
    contexto.ForaDoRastro([&] {
        try {
            ligado = LeParametroEmpresa(contexto, nome) == u"S";
        } catch (const RuntimeError& erro) {
            Journal(u"%1: %2"_s.arg(nome, erro.description()));
        }
    });
    return ligado;
}

qint32 ProximoGenerator(ContextoExecucao& contexto, data::Piece nome) {
    Statement comando;
    comando << "select gen_id(" << nome << ", 1) "
            << "from RDB$GENERATORS "
            << "where RDB$GENERATOR_NAME = '" << UCase(Trim(nome.toString())) << "'; ";
    Recordset registros = AbreLeituraComoEscrita(contexto, comando);
    return registros.Eof() ? 0 : registros.Fields(0).toInt32();
}

qint32 UltimoIdentity(ContextoExecucao& contexto) {
    Recordset registros = AbreLeitura(contexto, Statement("SELECT @@identity as 'MaxRowID'"));
    return registros.Eof() || registros.Fields("MaxRowID").isNull() ? 0 : registros.Fields("MaxRowID").toInt32();
}

void LeCoresSistema(ContextoExecucao& contexto, const QString& esquema) {
    Statement comando;
    comando << "select * from cor_sist "
            << "where "
            << "DESC_COR_SIST = '" << Trim(esquema) << "'";
    Recordset registros = AbreLeitura(contexto, comando);
    const bool achou = !registros.Eof();
    // A scheme may leave a colour open; read as a number, nothing would be black.
    const auto cor = [&](const char* coluna, const QString& padrao) {
        const QString guardada = achou ? registros.Fields(coluna).textOr({}) : QString();
        return Trim(guardada).isEmpty() ? padrao : guardada;
    };
    contexto.CorFundo1 = cor("CODI_BACK_0001", fundoDoSistema);
    contexto.CorFrente1 = cor("CODI_FORE_0001", frenteDoSistema);
    contexto.CorFundo2 = cor("CODI_BACK_0002", fundoDoSistema);
    contexto.CorFrente2 = cor("CODI_FORE_0002", frenteDoSistema);
}

void AplicaCoresForm(ContextoExecucao& contexto, screen::Screen& tela) {
    const Colour fundo = corDe(contexto.CorFundo1);
    const Colour frente = corDe(contexto.CorFrente1);
    tela.setBackground(fundo);
    for (screen::Field* campo : tela.fields()) {
        switch (campo->kind()) {
        case FieldKind::Label:
            campo->setForeground(frente);
            [[fallthrough]];
        case FieldKind::Button:
        case FieldKind::Text:
        case FieldKind::Check:
        case FieldKind::Option:
            campo->setBackground(fundo);
            break;
        default:
            break;
        }
    }
}

void FechaServidor(ContextoExecucao& contexto, const QString& modo) {
    if (!contexto.ConexaoPrincipal)
        return;
    try {
        contexto.ConexaoPrincipal->Close();
        contexto.ConexaoPrincipal.reset();
    } catch (const RuntimeError&) {
        contexto.program().MsgBox({u"Erro ao fechar banco de dados (%1)\nTente Novamente. Caso o problema "
                                   "persista, contate o Desenvolvedor!"_s.arg(contexto.TipoBanco),
                                   u"Falha Conexão"_s, screen::Icon::Critical, screen::Buttons::OK});
        contexto.program().End();
    }
    if (modo == u"SAIR")
        contexto.program().End();
}

} // namespace vorta
