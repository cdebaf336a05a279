#include "shared/Insercao.h"

#include "launch/AcessoDados.h"

namespace vorta {

std::optional<qint32> ChaveDoGerador(ContextoExecucao& contexto, std::optional<data::Piece> gerador) {
    if (!contexto.isFirebird() || !gerador)
        return std::nullopt;
    return ProximoGenerator(contexto, *gerador);
}

Insercao::Insercao(data::Piece tabela) {
    colunas_ << "insert into " << tabela << " (";
}

Insercao& Insercao::inclui(const data::Statement& coluna, const QString& valor) {
    if (!primeira_) {
        colunas_ << ", ";
        valores_ << ", ";
    }
    primeira_ = false;
    colunas_ << coluna;
    valores_ << "'" << valor << "'";
    return *this;
}

Insercao& Insercao::incluiChave(const data::Statement& coluna, std::optional<qint32> chave) {
    return chave ? inclui(coluna, QString::number(*chave)) : *this;
}

data::Statement Insercao::encerra(const ContextoExecucao& contexto, QString (*formaData)(const QDate&)) {
    inclui("data_incl", formaData(contexto.hoje()));
    inclui("user_incl", QString::number(contexto.CodigoUsuario));
    return colunas_ << ") " << valores_ << ")";
}

} // namespace vorta
