#include "person/BlocosEndereco.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"
#include "person/frmPessoas.h"
#include "shared/Consultas.h"
#include "shared/Preenchimento.h"

#include <array>

namespace vorta {

namespace {

using screen::Button;
using screen::Label;
using screen::ListField;
using screen::MaskedField;
using screen::TextField;

/// One address: its qualifier in the tables and its fields on the screen.
struct BlocoEndereco {
    const char* qualificador;
    TextField frmPessoas::*endereco;
    TextField frmPessoas::*numero;
    TextField frmPessoas::*complemento;
    TextField frmPessoas::*bairro;
    ListField frmPessoas::*cidade;
    ListField frmPessoas::*uf;
    MaskedField frmPessoas::*cep;
    ListField frmPessoas::*pais;
    Label frmPessoas::*municipio;
    Button frmPessoas::*buscaCep;
};

constexpr BlocoEndereco comercial{"COML",
                                  &frmPessoas::txtEndereco,
                                  &frmPessoas::txtNumero,
                                  &frmPessoas::txtComplemento,
                                  &frmPessoas::txtBairro,
                                  &frmPessoas::cboCidade,
                                  &frmPessoas::cboUF,
                                  &frmPessoas::mskCEP,
                                  &frmPessoas::cboPais_Coml,
                                  &frmPessoas::lblCodMunIBGE,
                                  &frmPessoas::cmdCEP};
constexpr BlocoEndereco entrega{"ENTG",
                                &frmPessoas::txtEnt_Endereco,
                                &frmPessoas::txtEnt_Numero,
                                &frmPessoas::txtEnt_Complemento,
                                &frmPessoas::txtEnt_Bairro,
                                &frmPessoas::cboEnt_Cidade,
                                &frmPessoas::cboEnt_UF,
                                &frmPessoas::mskEnt_CEP,
                                &frmPessoas::cboPais_Entg,
                                &frmPessoas::lblEnt_CodMunIBGE,
                                &frmPessoas::cmdCEP_Entg};
constexpr BlocoEndereco cobranca{"COBR",
                                 &frmPessoas::txtCob_Endereco,
                                 &frmPessoas::txtCob_Numero,
                                 &frmPessoas::txtCob_Complemento,
                                 &frmPessoas::txtCob_Bairro,
                                 &frmPessoas::cboCob_Cidade,
                                 &frmPessoas::cboCob_UF,
                                 &frmPessoas::mskCob_CEP,
                                 &frmPessoas::cboPais_Cobr,
                                 &frmPessoas::lblCob_CodMunIBGE,
                                 &frmPessoas::cmdCEP_Cobr};

/// In the order in which the state lists are filled.
constexpr std::array blocos{&comercial, &entrega, &cobranca};

struct BotaoCopia {
    Button frmPessoas::*botao;
    const BlocoEndereco* origem;
    const BlocoEndereco* destino;
};

constexpr std::array copias{
    BotaoCopia{&frmPessoas::cmdEndComl1, &comercial, &entrega},
    BotaoCopia{&frmPessoas::cmdEndComl2, &comercial, &cobranca},
    BotaoCopia{&frmPessoas::cmdEndEntrega, &entrega, &cobranca},
};

bool Confirma(frmPessoas& tela, const QString& pergunta) {
    return tela.program().MsgBox({pergunta, {}, screen::Icon::None, screen::Buttons::YesNo}) == screen::Answer::Yes;
}

void LigaBloco(frmPessoas& tela, const BlocoEndereco& bloco) {
    ContextoExecucao& contexto = tela.contexto();
    ListField& cidade = tela.*bloco.cidade;
    ListField& uf = tela.*bloco.uf;
    ListField& pais = tela.*bloco.pais;
    Label& municipio = tela.*bloco.municipio;
    cidade.DropDown = [&] { PreencheMunicipios(contexto, uf.text(), cidade.text(), cidade); };
    cidade.LostFocus = [&] {
        QString nome = cidade.text(); // the lookup may respell it; the field keeps what was typed
        municipio.setText(CodigoMunicipio(contexto, nome, uf.text()));
    };
    pais.DropDown = [&] { PreenchePaises(contexto, pais.text(), pais); };
    (tela.*bloco.buscaCep).Click = [&contexto, &bloco] {
        contexto.EnderecoAlvoCep = QString::fromLatin1(bloco.qualificador);
        contexto.MostraTela(u"frmBROWSE_CEPS"_s);
    };
}

/// The municipal code stays behind: it follows when the focus passes through the city list.
void CopiaEndereco(frmPessoas& tela, const BlocoEndereco& origem, const BlocoEndereco& destino) {
    const auto copia = [&](auto campo) { (tela.*(destino.*campo)).setText((tela.*(origem.*campo)).text()); };
    copia(&BlocoEndereco::endereco);
    copia(&BlocoEndereco::numero);
    copia(&BlocoEndereco::complemento);
    copia(&BlocoEndereco::bairro);
    copia(&BlocoEndereco::cidade);
    copia(&BlocoEndereco::uf);
    copia(&BlocoEndereco::cep);
    copia(&BlocoEndereco::pais);
}

bool ConfirmaClone(frmPessoas& tela) {
    return Confirma(tela, u"Confirma Clone: De Razao Social P/ Nome Fantasia?"_s);
}

void txtNomeFantasia_LostFocus(frmPessoas& tela) {
    TextField& fantasia = tela.txtNomeFantasia;
    if (!fantasia.text().isEmpty())
        fantasia.setText(Trim(UCase(fantasia.text())));
    else if (ConfirmaClone(tela))
        fantasia.setText(UCase(Trim(tela.txtDescricao.text())));
}

} // namespace

void LigaBlocosEndereco(frmPessoas& tela) {
    for (const BlocoEndereco* bloco : blocos)
        LigaBloco(tela, *bloco);
    for (const BotaoCopia& copia : copias)
        (tela.*copia.botao).Click = [&tela, &copia] {
            if (Confirma(tela, u"Confirma Repetição do Endereço?"_s))
                CopiaEndereco(tela, *copia.origem, *copia.destino);
        };
    tela.cmdClonarRazaoSocial.Click = [&tela] {
        if (ConfirmaClone(tela))
            tela.txtNomeFantasia.setText(tela.txtDescricao.text());
    };
    tela.txtNomeFantasia.LostFocus = [&tela] { txtNomeFantasia_LostFocus(tela); };
}

void PreencheCombosUFs(frmPessoas& tela) {
    ContextoExecucao& contexto = tela.contexto();
    contexto.SqlConsulta.clear();
    contexto.SqlConsulta << "SELECT UF00.IDUF00, UF00.CODI_UF00 "
                         << "FROM UF00 "
                         << "Where (UF00.DATA_DESA Is Null) "
                         << "ORDER BY UF00.CODI_UF00";
    for (const BlocoEndereco* bloco : blocos) {
        ListField& lista = tela.*bloco->uf;
        lista.clear();
        lista.addItem(LeUfEmpresa(contexto));
        lista.addItem(u"  "_s);
    }
    for (data::Recordset registros = AbreLeitura(contexto, contexto.SqlConsulta); !registros.Eof();
         registros.MoveNext())
        for (const BlocoEndereco* bloco : blocos)
            (tela.*bloco->uf).addItem(registros.Fields("codi_uf00").text());
}

} // namespace vorta
