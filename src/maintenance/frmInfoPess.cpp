#include "maintenance/frmInfoPess.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "launch/Lancamento.h"
#include "shared/Consultas.h"
#include "shared/TextoEntrada.h"

#include <array>
#include <iterator>

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;

/// What is counted, and the pair of labels that shows it.
struct Contagem {
    data::Piece consulta;
    const char* nome;
    screen::Label frmInfoPess::*descricao;
    screen::Label frmInfoPess::*quantidade;
};

constexpr std::array contagens{
    Contagem{"select count(*) 'qt' from pess where data_desa is null", "Pessoas", &frmInfoPess::lblDesc1,
             &frmInfoPess::lblQt1},
    Contagem{"select count(*) 'qt' from clie where data_desa is null", "Clientes", &frmInfoPess::lblDesc2,
             &frmInfoPess::lblQt2},
    Contagem{"select count(*) 'qt' from forn where data_desa is null", "Fornecedores", &frmInfoPess::lblDesc3,
             &frmInfoPess::lblQt3},
    Contagem{"select count(*) 'qt' from vend where data_desa is null", "Vendedores", &frmInfoPess::lblDesc4,
             &frmInfoPess::lblQt4},
    Contagem{"select count(*) 'qt' from trpt where data_desa is null", "Transportadoras", &frmInfoPess::lblDesc5,
             &frmInfoPess::lblQt5},
};

/// The columns that the maintenance reads of a person.
constexpr std::array<data::Piece, 7> colunasLidas{"IDPESS",         "CIDA_COML_PESS", "UF00_COML_PESS",
                                                  "CIDA_ENTG_PESS", "UF00_ENTG_PESS", "CIDA_COBR_PESS",
                                                  "UF00_COBR_PESS"};

/// The municipal code of an address of the row; a null city or state raises 94.
QString CodigoDoEndereco(ContextoExecucao& contexto, const Recordset& pessoa, const char* cidade, const char* uf) {
    QString nome = pessoa.Fields(cidade).text();
    return CodigoMunicipio(contexto, nome, pessoa.Fields(uf).text());
}

void AtualizaCodigosMunicipio(ContextoExecucao& contexto, const Recordset& pessoa) {
    const QString comercial = CodigoDoEndereco(contexto, pessoa, "CIDA_COML_PESS", "UF00_COML_PESS");
    const QString entrega = CodigoDoEndereco(contexto, pessoa, "CIDA_ENTG_PESS", "UF00_ENTG_PESS");
    const QString cobranca = CodigoDoEndereco(contexto, pessoa, "CIDA_COBR_PESS", "UF00_COBR_PESS");
    contexto.SqlComando = Statement("UPDATE PESS SET CODI_MUNI_COML_PESS='");
    contexto.SqlComando << comercial << "', CODI_MUNI_ENTG_PESS='" << entrega << "', CODI_MUNI_COBR_PESS='" << cobranca
                        << "' WHERE (idPESS=" << pessoa.Fields("IDPESS").text() << ")";
    ExecutaSemAcentos(contexto, contexto.SqlComando);
}

} // namespace

frmInfoPess::frmInfoPess(ContextoExecucao& contexto) : Screen(contexto.program(), "frmInfoPess"), contexto_(contexto) {
    cmdEspecialMun.Click = [this] { cmdEspecialMun_Click(); };
    cmdSAIR.Click = [this] { Unload(); };
}

void frmInfoPess::Load() {
    CentralizaForm(*this);
    setCaption(TituloTela(contexto_, u" ("_s + contexto_.Ambiente + u") - Informação de Pessoas "_s));
    ContaRegistros();
    CalculaSemVinculo();
    lblDataHora.setText(FormatDateTime(contexto_.platform().now()));
    for (screen::Label* rotulo : {&lblDesc6, &lblQt6, &lblDescSemVinc, &lblQtSemVinc})
        rotulo->setVisible(false);
}

void frmInfoPess::ContaRegistros() {
    qint64 contadas = 0;
    contexto_.platform().progress(contadas, std::ssize(contagens));
    for (const Contagem& contagem : contagens) {
        const Recordset registro =
            AbrePassoLongo(contexto_, Statement(contagem.consulta), contadas, std::ssize(contagens));
        (this->*contagem.descricao).setText(QString::fromUtf8(contagem.nome));
        (this->*contagem.quantidade).setText(registro.Fields("qt").text());
        contexto_.platform().progress(++contadas, std::ssize(contagens));
    }
    contexto_.platform().progress(0, 0);
}

/// A person with two roles is taken off twice, so the rest may fall below zero.
void frmInfoPess::CalculaSemVinculo() {
    lblDescSemVinc.setText(u"Sem Vínculo"_s);
    double resto = Val(lblQt1.text());
    for (const screen::Label* papel : {&lblQt2, &lblQt3, &lblQt4, &lblQt5, &lblQt6})
        resto -= Val(papel->text());
    lblQtSemVinc.setText(FormatNumber(std::max(resto, 0.0)));
}

void frmInfoPess::cmdEspecialMun_Click() {
    Recordset pessoas = AbreLeituraLonga(contexto_, Statement("SELECT * FROM pess order by idpess"),
                                         {colunasLidas.begin(), colunasLidas.end()});
    setPointer(screen::Pointer::Hourglass);
    const int total = pessoas.RecordCount();
    int contador = 0;
    for (; !pessoas.Eof(); pessoas.MoveNext()) {
        AtualizaCodigosMunicipio(contexto_, pessoas);
        contexto_.platform().progress(++contador, total);
    }
    contexto_.platform().progress(0, 0);
    setPointer(screen::Pointer::Default);
    program().MsgBox({u"%1 registros foram atualizados!"_s.arg(contador), caption(), screen::Icon::Information,
                      screen::Buttons::OK});
}

void RegistraTelasManutencao(ContextoExecucao& contexto) {
    contexto.RegistraTela(u"frmInfoPess"_s, [](ContextoExecucao& dona) { return std::make_unique<frmInfoPess>(dona); });
}

} // namespace vorta
