#pragma once

#include "firebird/PreparedStatement.h"

#include <array>
#include <list>

namespace vorta::firebird {

/// The last prepared statements of a connection by their text with `?`; also remembers which texts cannot be prepared
/// that way.
class StatementCache {
  public:
    /// The prepared statement of that text, making it when it is new; none when the engine refuses it with parameters.
    PreparedStatement* find(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction,
                            const QString& text);
    /// True when that text is kept or has just been sent: one that comes again, such as the reading of a generator, is
    /// worth keeping although it has no `?`.
    bool comesAgain(const QString& text);
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
    static constexpr std::size_t mostRecent = 16;
    std::array<size_t, mostRecent> recent_{}; ///< hashes of the last texts, in a ring
    std::size_t nextRecent_ = 0;
};

} // namespace vorta::firebird
