#pragma once

#include "data/Statement.h"

namespace vorta {

/// An insert statement as its two halves, columns and values, which grow side by side. Every value stands between
/// apostrophes.
class Insercao {
  public:
    explicit Insercao(data::Piece tabela);

    /// Adds a column with its value, behind those that stand there already.
    Insercao& inclui(data::Piece coluna, const QString& valor) { return inclui(data::Statement(coluna), valor); }
    Insercao& inclui(const data::Statement& coluna, const QString& valor);

    /// The whole statement so far.
    data::Statement comando() const;

  private:
    data::Statement colunas_;
    data::Statement valores_{"values ("};
    bool primeira_ = true;
};

} // namespace vorta
