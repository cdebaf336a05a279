#pragma once

#include "base/Format.h"
#include "launch/ContextoExecucao.h"

#include <optional>

namespace vorta {

/// The key of a row that is about to be inserted, read from the table's generator. None where the database fills the
/// key itself: on every engine but Firebird, and for tables without a generator.
std::optional<qint32> ChaveDoGerador(ContextoExecucao& contexto, std::optional<data::Piece> gerador);

/// An insert statement as its two halves, columns and values, which grow side by side. Every value stands between
/// apostrophes.
class Insercao {
  public:
    explicit Insercao(data::Piece tabela);

    /// Adds a column with its value, behind those that stand there already.
    Insercao& inclui(data::Piece coluna, const QString& valor) { return inclui(data::Statement(coluna), valor); }
    Insercao& inclui(const data::Statement& coluna, const QString& valor);
    /// Adds the key's column, or nothing where the database fills it.
    Insercao& incluiChave(const data::Statement& coluna, std::optional<qint32> chave);

    /// The whole statement, closed by the day of inclusion, in the form of the screen's dates, and its user.
    data::Statement encerra(const ContextoExecucao& contexto, QString (*formaData)(const QDate&) = FormatDateSql);

  private:
    data::Statement colunas_;
    data::Statement valores_{"values ("};
    bool primeira_ = true;
};

} // namespace vorta
