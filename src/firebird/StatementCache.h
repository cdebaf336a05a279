#pragma once

#include "firebird/PreparedStatement.h"

#include <QHash>
#include <list>

namespace vorta::firebird {

/// The last prepared statements of a connection by their text, with `?` for operands; also remembers which texts cannot
/// be prepared that way.
class StatementCache {
  public:
    /// When a text is worth keeping prepared: one with operands aside will come again with others, one without them has
    /// to come a second time first, or single searches would fill the cache with their row buffers.
    enum class Keep { AtOnce, WhenRepeated };
    /// The prepared statement of that text, making it when it is worth it; none when it is not, or when the engine
    /// refuses it.
    PreparedStatement* find(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction, const QString& text,
                            Keep keep);
    /// Forgets all of them: after a change of the tables, and before the connection closes.
    void clear() {
        byText_.clear();
        entries_.clear();
    }

  private:
    struct Entry {
        QString text;
        std::unique_ptr<PreparedStatement> prepared;
        bool tried;
    };
    void remember(const QString& text);

    /// Enough for the statements that one loop of a screen repeats, one for each of the towns that most persons live in
    /// included.
    static constexpr std::size_t mostEntries = 256;
    std::list<Entry> entries_; // the last used first
    QHash<QString, std::list<Entry>::iterator> byText_;
};

} // namespace vorta::firebird
