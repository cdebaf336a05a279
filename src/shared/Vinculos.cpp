#include "shared/Vinculos.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"

#include <array>

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;

/// Words of the document search that stand for tables of the freight program and no role of the register.
struct TabelaFrete {
    QStringView palavra;
    data::Piece tabela;
};

constexpr std::array tabelasFrete{TabelaFrete{u"REMETENTE", "clie_reme"}, TabelaFrete{u"DESTINATARIO", "clie_dest"}};

/// Length of a masked root of a company's number, "##.###.###".
constexpr qsizetype tamanhoRaizMascarada = 10;

/// Masks a bare document by its length. True when it is only the root of a company's number.
bool MascaraDocumento(QString& documento) {
    if (documento.contains(u'.'))
        return documento.size() == tamanhoRaizMascarada;
    const QString bruto = documento;
    const auto parte = [&](int inicio, int tamanho) { return Mid(bruto, inicio, tamanho); };
    switch (bruto.size()) {
    case 11:
        documento = parte(1, 3) + u'.' + parte(4, 3) + u'.' + parte(7, 3) + u'-' + parte(10, 2);
        return false;
    case 14:
        documento = parte(1, 2) + u'.' + parte(3, 3) + u'.' + parte(6, 3) + u'/' + parte(9, 4) + u'-' + parte(13, 2);
        return false;
    case 8:
        documento = parte(1, 2) + u'.' + parte(3, 3) + u'.' + parte(6, 3);
        return true;
    default:
        return false;
    }
}

/// The table that a word of the document search stands for; none for a search of the whole register.
std::optional<data::Piece> TabelaDe(const QString& palavra) {
    for (const Papel& papel : papeis)
        if (palavra == papel.palavra)
            return papel.tabela;
    for (const TabelaFrete& linha : tabelasFrete)
        if (palavra == linha.palavra)
            return linha.tabela;
    return {};
}

Statement BuscaPorDocumento(const std::optional<data::Piece>& tabela, const QString& documento, bool parcial) {
    Statement comando("select pess.IDPESS, pess.NOME_PESS ");
    if (tabela)
        comando << "from pess, " << *tabela << " where pess.idpess = " << *tabela << ".idpess and ";
    else
        comando << "from pess "
                << "where ";
    if (parcial)
        comando << "pess.cpf0_cnpj like '" << documento << "%'";
    else
        comando << "pess.cpf0_cnpj='" << documento << "'";
    return comando;
}

} // namespace

QString Vinculo(ContextoExecucao& contexto, const Papel& papel, const QString& idpess) {
    contexto.SqlConsulta.clear();
    contexto.SqlConsulta << "select " << papel.chave << " from " << papel.tabela << " where idpess = " << idpess;
    if (contexto.VinculoAtual != u"S")
        contexto.SqlConsulta << " and data_desa is null";
    Recordset registros = AbreLeitura(contexto, contexto.SqlConsulta);
    return registros.Eof() ? u"0"_s : registros.Fields(papel.chave.utf8()).text();
}

QString VinculoCliente(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, PapelDe(TipoPapel::Cliente), idpess);
}

QString VinculoMotorista(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, PapelDe(TipoPapel::Motorista), idpess);
}

QString VinculoTransportadora(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, PapelDe(TipoPapel::Transportadora), idpess);
}

QString VinculoVendedor(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, PapelDe(TipoPapel::Vendedor), idpess);
}

QString VinculoFornecedor(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, PapelDe(TipoPapel::Fornecedor), idpess);
}

QString VinculoDecorador(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, PapelDe(TipoPapel::Decorador), idpess);
}

QString VinculoArquiteto(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, PapelDe(TipoPapel::Arquiteto), idpess);
}

void AtualizaIndicadoresVinculo(ContextoExecucao& contexto, screen::Screen& tela) {
    contexto.VinculoAtual = u"N"_s;
    const QString idpess = tela.field(u"txtRowID"_s).text();
    const bool semPessoa = Trim(idpess).isEmpty();
    for (const Papel& papel : papeis) {
        const bool vinculado = !semPessoa && Val(Vinculo(contexto, papel, idpess)) > 0;
        tela.field(QString::fromLatin1(papel.botao))
            .loadPicture(contexto.CaminhoImagens + (vinculado ? u"comvinculo.bmp"_s : u"semvinculo.bmp"_s));
    }
}

QString RetornaPessoaPorDocumento(ContextoExecucao& contexto, QString& documento, const QString& papel) {
    contexto.RetornoPesquisa.clear();
    documento = Trim(documento);
    const bool parcial = MascaraDocumento(documento);
    const std::optional<data::Piece> tabela = TabelaDe(papel);
    Recordset registros = AbreLeitura(contexto, BuscaPorDocumento(tabela, documento, parcial));
    QString nome;
    if (registros.RecordCount() == 1)
        nome = registros.Fields("NOME_PESS").text();
    else if (registros.Eof())
        contexto.RetornoPesquisa = u"CNPJ/CPF não localizado!"_s;
    else if (!tabela)
        contexto.RetornoPesquisa =
            parcial ? u"Atenção! A Empresa possui mais de uma filial...deverá ser digitado o CNPJ completo!"_s
                    : u"Atenção! Você está com problemas de cadastros, duplicidades de CNPJ/CPF foram "
                      "detectados!"_s;
    if (!nome.isEmpty())
        contexto.RetornoPesquisa = u"[ID]"_s + nome;
    else if (!papel.isEmpty())
        contexto.RetornoPesquisa = u"Não Existe vinculo como [%1]"_s.arg(papel);
    return nome;
}

void GravaVinculoPess(ContextoExecucao& contexto, const QString& idpess, data::Piece coluna, const QString& valor) {
    contexto.SqlComando.clear();
    contexto.SqlComando << "UPDATE PESS SET " << coluna << " = " << valor << " WHERE IDPESS = " << idpess;
    Executa(contexto, contexto.SqlComando);
}

void LimpaVinculoPess(ContextoExecucao& contexto, const QString& idpess, data::Piece coluna) {
    contexto.SqlComando.clear();
    contexto.SqlComando << "UPDATE PESS SET " << coluna << " = 0 WHERE IDPESS = " << idpess;
    Executa(contexto, contexto.SqlComando);
}

} // namespace vorta
