#include "shared/Vinculos.h"

#include "base/Literals.h"
#include "base/Text.h"
#include "launch/AcessoDados.h"

#include <algorithm>
#include <array>

namespace vorta {

namespace {

using data::Recordset;
using data::Statement;

constexpr std::array papeis{
    PapelVinculo{TipoPapel::Cliente, "cmdCliente", "select idclie from clie ", "idClie"},
    PapelVinculo{TipoPapel::Transportadora, "cmdTransportadora", "select idtrpt from trpt ", "idTRPT"},
    PapelVinculo{TipoPapel::Vendedor, "cmdVendedor", "select idvend from vend ", "idvend"},
    PapelVinculo{TipoPapel::Motorista, "cmdMotorista", "select idmoto from moto ", "idMoto"},
    PapelVinculo{TipoPapel::Fornecedor, "cmdFornecedor", "select idforn from forn ", "idForn"},
    PapelVinculo{TipoPapel::Decorador, "cmdDecorador", "select iddeco from deco ", "idDeco"},
    PapelVinculo{TipoPapel::Arquiteto, "cmdArquiteto", "select idarqt from arqt ", "idArqt"},
};

/// The role words of the document search and their tables; any other word searches the whole register.
struct TabelaPapel {
    QStringView palavra;
    data::Piece de;   ///< the table in the FROM list
    data::Piece liga; ///< the join
};

constexpr std::array tabelasPapel{
    TabelaPapel{u"CLIENTE", "clie", "where pess.idpess = clie.idpess and "},
    TabelaPapel{u"REMETENTE", "clie_reme", "where pess.idpess = clie_reme.idpess and "},
    TabelaPapel{u"DESTINATARIO", "clie_dest", "where pess.idpess = clie_dest.idpess and "},
    TabelaPapel{u"FORNECEDOR", "forn", "where pess.idpess = forn.idpess and "},
    TabelaPapel{u"MOTORISTA", "moto", "where pess.idpess = moto.idpess and "},
    TabelaPapel{u"TRANSPORTADORA", "trpt", "where pess.idpess = trpt.idpess and "},
    TabelaPapel{u"DECORADOR", "deco", "where pess.idpess = deco.idpess and "},
    TabelaPapel{u"ARQUITETO", "arqt", "where pess.idpess = arqt.idpess and "},
    TabelaPapel{u"VENDEDOR", "vend", "where pess.idpess = vend.idpess and "},
};

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

const TabelaPapel* TabelaDe(const QString& papel) {
    const auto achada = std::find_if(tabelasPapel.begin(), tabelasPapel.end(),
                                     [&](const TabelaPapel& linha) { return papel == linha.palavra; });
    return achada == tabelasPapel.end() ? nullptr : &*achada;
}

Statement BuscaPorDocumento(const TabelaPapel* tabela, const QString& documento, bool parcial) {
    Statement comando("select pess.IDPESS, pess.NOME_PESS ");
    if (tabela)
        comando << "from pess, " << tabela->de << " " << tabela->liga;
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

std::span<const PapelVinculo> Papeis() {
    return papeis;
}

const PapelVinculo& Papel(TipoPapel papel) {
    return *std::find_if(papeis.begin(), papeis.end(), [&](const PapelVinculo& linha) { return linha.papel == papel; });
}

QString Vinculo(ContextoExecucao& contexto, TipoPapel papel, const QString& idpess) {
    const PapelVinculo& linha = Papel(papel);
    contexto.SqlConsulta.clear();
    contexto.SqlConsulta << linha.consulta << "where idpess = " << idpess;
    if (contexto.VinculoAtual != u"S")
        contexto.SqlConsulta << " and data_desa is null";
    Recordset registros = AbreLeitura(contexto, contexto.SqlConsulta);
    return registros.Eof() ? u"0"_s : registros.Fields(linha.coluna).text();
}

QString VinculoCliente(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, TipoPapel::Cliente, idpess);
}

QString VinculoMotorista(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, TipoPapel::Motorista, idpess);
}

QString VinculoTransportadora(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, TipoPapel::Transportadora, idpess);
}

QString VinculoVendedor(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, TipoPapel::Vendedor, idpess);
}

QString VinculoFornecedor(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, TipoPapel::Fornecedor, idpess);
}

QString VinculoDecorador(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, TipoPapel::Decorador, idpess);
}

QString VinculoArquiteto(ContextoExecucao& contexto, const QString& idpess) {
    return Vinculo(contexto, TipoPapel::Arquiteto, idpess);
}

void AtualizaIndicadoresVinculo(ContextoExecucao& contexto, screen::Screen& tela) {
    contexto.VinculoAtual = u"N"_s;
    const QString idpess = tela.field(u"txtRowID"_s).text();
    const bool semPessoa = Trim(idpess).isEmpty();
    for (const PapelVinculo& linha : papeis) {
        const bool vinculado = !semPessoa && Val(Vinculo(contexto, linha.papel, idpess)) > 0;
        tela.field(QString::fromLatin1(linha.botao))
            .loadPicture(contexto.CaminhoImagens + (vinculado ? u"comvinculo.bmp"_s : u"semvinculo.bmp"_s));
    }
}

QString RetornaPessoaPorDocumento(ContextoExecucao& contexto, QString& documento, const QString& papel) {
    contexto.RetornoPesquisa.clear();
    documento = Trim(documento);
    const bool parcial = MascaraDocumento(documento);
    const TabelaPapel* tabela = TabelaDe(papel);
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
