#include "shared/Insercao.h"

namespace vorta {

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

data::Statement Insercao::comando() const {
    data::Statement inteiro = colunas_;
    return inteiro << ") " << valores_ << ")";
}

} // namespace vorta
