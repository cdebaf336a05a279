#include "firebird/StatementCache.h"

namespace vorta::firebird {

namespace {

std::unique_ptr<PreparedStatement> make(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction,
                                        const QString& text) {
    try {
        auto made = std::make_unique<PreparedStatement>(attachment, transaction, text);
        // A change of tables empties this cache, and must not be in it then.
        return made->answer() == Answer::Tables ? nullptr : std::move(made);
    } catch (const Firebird::FbException&) {
        // The text as the flow sent it tells its own failure, if it has one.
        return nullptr;
    }
}

} // namespace

PreparedStatement* StatementCache::find(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction,
                                        const QString& text, Keep keep) {
    const auto known = byText_.constFind(text);
    const bool isNew = known == byText_.constEnd();
    if (isNew)
        remember(text);
    else
        entries_.splice(entries_.begin(), entries_, *known);
    Entry& entry = entries_.front();
    if (!entry.tried && (!isNew || keep == Keep::AtOnce)) {
        entry.tried = true;
        entry.prepared = make(attachment, transaction, text);
    }
    return entry.prepared.get();
}

void StatementCache::remember(const QString& text) {
    if (entries_.size() == mostEntries) {
        byText_.remove(entries_.back().text);
        entries_.pop_back();
    }
    entries_.push_front({text, nullptr, false});
    byText_.insert(text, entries_.begin());
}

} // namespace vorta::firebird
