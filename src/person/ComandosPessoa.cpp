#include "person/ComandosPessoa.h"

#include "base/Format.h"
#include "base/Literals.h"
#include "base/Text.h"
#include "person/CamposPessoa.h"
#include "shared/Consultas.h"
#include "shared/Insercao.h"

namespace vorta {

namespace {

using data::Statement;

QString textoDe(const screen::Screen& tela, const CampoPessoa& linha) {
    return tela.field(QString::fromLatin1(linha.nome)).text();
}

bool temValor(Gravacao gravacao, const QString& texto) {
    switch (gravacao) {
    case Gravacao::Nunca:
        return false;
    case Gravacao::SeTemTexto:
    case Gravacao::SeTemMascara:
        return !texto.isEmpty();
    case Gravacao::SeTemTextoAparado:
        return !Trim(texto).isEmpty();
    case Gravacao::SeTemData:
        return IsDate(texto);
    case Gravacao::Sempre:
        return true;
    }
    return true;
}

QString valorDe(ContextoExecucao& contexto, Forma forma, const QString& texto, bool inclusao) {
    switch (forma) {
    case Forma::Texto:
    case Forma::TextoExigido:
    case Forma::Documento:
    case Forma::DiaMes:
    case Forma::CepComercial:
    case Forma::CepEntrega:
    case Forma::CepCobranca:
        return texto;
    case Forma::Aparado:
        return Trim(texto);
    case Forma::CodigoMunicipio:
        return inclusao ? Trim(texto) : texto;
    case Forma::FisicaOuJuridica:
        return texto == u"Física" ? u"F"_s : u"J"_s;
    case Forma::Data:
        return FormatDateSql(ParseDate(texto)->date());
    case Forma::Vendedor:
        return QString::number(IdVendedor(contexto, texto));
    case Forma::TipoCliente:
        return QString::number(IdTipoCliente(contexto, texto));
    case Forma::Transportadora:
        return QString::number(IdTransportadora(contexto, texto));
    }
    return texto;
}

} // namespace

Statement MontaInsertPessoa(ContextoExecucao& contexto, const screen::Screen& tela, std::optional<qint32> novoId) {
    Insercao insercao("pess");
    insercao.incluiChave(Statement("idpess"), novoId);
    for (const CampoPessoa* linha : OrdemInsert()) {
        const QString texto = textoDe(tela, *linha);
        const data::Piece coluna = linha->colunaInsert.value_or(*linha->coluna);
        if (temValor(linha->grava, texto))
            insercao.inclui(coluna, valorDe(contexto, linha->forma, texto, true));
        else if (linha->vazio.inserido)
            insercao.inclui(coluna, QString::fromLatin1(linha->vazio.inserido));
    }
    return insercao.encerra(contexto);
}

Statement MontaUpdatePessoa(ContextoExecucao& contexto, const screen::Screen& tela) {
    Statement comando("UPDATE PESS SET ");
    bool primeira = true;
    for (const CampoPessoa* linha : OrdemUpdate()) {
        if (!primeira)
            comando << ", ";
        primeira = false;
        const QString texto = textoDe(tela, *linha);
        if (temValor(linha->grava, texto))
            comando << *linha->coluna << "='" << valorDe(contexto, linha->forma, texto, false) << "'";
        else
            comando << linha->vazio.colunaAlterada.value_or(*linha->coluna) << "=" << linha->vazio.alterado;
    }
    return comando << " WHERE (idPESS=" << tela.field(u"txtRowID"_s).text() << ")";
}

} // namespace vorta
