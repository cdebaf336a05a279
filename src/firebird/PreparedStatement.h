#pragma once

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
/// Its parameters, if any, are all integers or all texts. Every call may throw the engine's `FbException`.
class PreparedStatement {
  public:
    PreparedStatement(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction, const QString& text);

    Answer answer() const { return answer_; }
    /// For each parameter whether the engine takes a date there.
    std::vector<bool> datesAmongParameters() const;
    /// Puts the integers in; false when the engine takes one of them as anything but an integer, or it does not fit.
    bool bind(std::span<const qint64> integers);
    /// Puts texts in, of which the engine makes what it wants at its place, as it does of literals; false when one of
    /// them is too long for that.
    bool bind(std::span<const QString> texts);

    /// Runs a statement that answers with rows and hands them over, dropping them without a sink.
    void fetch(Firebird::ITransaction& transaction, data::RowSink* rows);
    /// Runs any other statement. The values that it gives back go to the sink as one row; gives the value of a single
    /// integer.
    std::optional<qint64> execute(Firebird::ITransaction& transaction, data::RowSink* rows);

  private:
    struct Parameter {
        unsigned type;
        unsigned offset;
    };
    void describeParameters();
    void describeTexts();

    /// What goes in at a run: a message and its description.
    struct Input {
        Handle<Firebird::IMessageMetadata> description;
        std::vector<unsigned char> message;
    };

    Handle<Firebird::IStatement> statement_;
    Answer answer_ = Answer::Nothing;
    Input asDescribed_; ///< the parameters as the engine describes them
    Input asTexts_;     ///< the same, every one of them a text; made when texts are bound
    Input* input_ = &asDescribed_;
    bool onlyIntegers_ = true;
    std::vector<Parameter> parameters_;
    std::vector<unsigned> textOffsets_;
    Handle<Firebird::IMessageMetadata> output_;
    std::unique_ptr<RowReader> reader_; ///< none where nothing comes back
};

} // namespace vorta::firebird
