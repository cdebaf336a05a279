#pragma once

#include "firebird/Bridge.h"
#include "firebird/RowReader.h"

#include <span>

namespace vorta::firebird {

/// What comes back from a statement.
enum class Answer {
    Rows,
    OneRow, ///< a write that gives values back
    Nothing,
    Tables ///< nothing, but it changes tables
};

/// A statement that the engine has prepared, with everything that is asked of the engine once instead of at every run.
/// Every call may throw the engine's `FbException`.
class PreparedStatement {
  public:
    /// A result whose first row, if there is one, has been fetched.
    struct Result {
        Handle<Firebird::IResultSet> cursor;
        bool hasRow = false;
    };

    PreparedStatement(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction, const QString& text);

    Answer answer() const { return answer_; }
    /// For each parameter whether the engine takes a date there.
    std::vector<bool> datesAmongParameters() const;
    /// Puts the operands in; false when one of them does not mean the same as a parameter: a number where the engine
    /// takes no integer of that size, a text where it takes neither a text nor the integer that the text spells.
    bool bind(std::span<const Operand> operands);
    /// Puts texts in, of which the engine makes what it wants at its place, as it does of literals; false when one of
    /// them is too long for that.
    bool bind(std::span<const QString> texts);

    /// Begins a statement that answers with rows. What the engine has against an operand it tells here, a server not
    /// before the first row.
    Result open(Firebird::ITransaction& transaction);
    /// Hands the rows over, dropping them without a sink.
    void fetch(Result result, Firebird::ITransaction& transaction, data::RowSink* rows);
    /// Runs any other statement. The values that it gives back go to the sink as one row; gives the value of a single
    /// integer.
    std::optional<qint64> execute(Firebird::ITransaction& transaction, data::RowSink* rows);

  private:
    struct Parameter {
        unsigned type;
        bool isInteger;
        bool isText;
    };
    /// What goes in at a run: a message, its description, and where in it each parameter stands.
    struct Input {
        Handle<Firebird::IMessageMetadata> description;
        std::vector<unsigned> offsets;
        std::vector<unsigned char> message;
    };
    void describeParameters();
    /// With the chosen parameters as texts of any length up to the longest, the others as the engine describes them.
    Input describe(const std::function<bool(const Parameter&)>& asText) const;
    bool fetchRow(Firebird::IResultSet& cursor);
    bool put(std::size_t parameter, qint64 integer);
    bool put(std::size_t parameter, const QString& text);

    Handle<Firebird::IStatement> statement_;
    Answer answer_ = Answer::Nothing;
    std::vector<Parameter> parameters_;
    Handle<Firebird::IMessageMetadata> parametersAsDescribed_;
    Input asOperands_; ///< integers and texts
    Input asTexts_;    ///< every one of them a text; made when texts are bound
    Input* input_ = &asOperands_;
    Handle<Firebird::IMessageMetadata> output_;
    std::unique_ptr<RowReader> reader_; ///< none where nothing comes back
};

} // namespace vorta::firebird
