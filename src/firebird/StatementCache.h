#pragma once

#include "firebird/Client.h"

#include <QString>
#include <list>
#include <optional>
#include <span>
#include <vector>

namespace vorta::firebird {

/// A statement prepared with its integers as parameters, ready to run again with others.
class PreparedStatement {
  public:
    /// Nothing when the engine refuses the text with parameters, or sees one of them as anything but an integer: the
    /// statement then runs as the text that it is.
    static std::unique_ptr<PreparedStatement> Make(Firebird::IAttachment& attachment,
                                                   Firebird::ITransaction& transaction, const QByteArray& text);

    /// Puts the integers in; false when one does not fit its parameter.
    bool bind(std::span<const qint64> integers);
    Firebird::IStatement& statement() { return *statement_; }
    Firebird::IMessageMetadata* inputDescription() { return input_.get(); }
    void* input() { return message_.data(); }

  private:
    struct Parameter {
        unsigned type;
        unsigned offset;
        unsigned nullOffset;
    };
    bool describe();

    Handle<Firebird::IStatement> statement_;
    Handle<Firebird::IMessageMetadata> input_;
    std::vector<Parameter> parameters_;
    std::vector<unsigned char> message_;
};

/// The last prepared statements of a connection by their text with `?`; also remembers which texts cannot be prepared
/// that way.
class StatementCache {
  public:
    /// The prepared statement of that text, making it when it is new; none when it cannot be prepared with parameters.
    PreparedStatement* find(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction,
                            const QString& text);
    /// Forgets all of them: after a change of the tables, and before the connection closes.
    void clear() { entries_.clear(); }

  private:
    struct Entry {
        QString text;
        std::unique_ptr<PreparedStatement> prepared;
    };
    /// Enough for the statements that one loop of a screen repeats.
    static constexpr std::size_t mostEntries = 32;
    std::list<Entry> entries_; // the last used first
};

} // namespace vorta::firebird
