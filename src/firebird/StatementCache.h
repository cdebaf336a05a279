#pragma once

#include "firebird/PreparedStatement.h"

#include <list>

namespace vorta::firebird {

/// The last prepared statements of a connection by their text; also remembers which texts cannot be kept prepared.
class StatementCache {
  public:
    /// The prepared statement of that text, making it when it is new; none when the engine refuses it.
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
