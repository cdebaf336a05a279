#include "firebird/StatementCache.h"

#include <algorithm>

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
                                        const QString& text) {
    const auto known =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.text == text; });
    if (known != entries_.end()) {
        entries_.splice(entries_.begin(), entries_, known);
        return entries_.front().prepared.get();
    }
    entries_.push_front({text, make(attachment, transaction, text)});
    if (entries_.size() > mostEntries)
        entries_.pop_back();
    return entries_.front().prepared.get();
}

bool StatementCache::comesAgain(const QString& text) {
    const auto kept = [&](const Entry& entry) { return entry.text == text; };
    if (std::any_of(entries_.begin(), entries_.end(), kept))
        return true;
    const size_t hash = qHash(text);
    if (std::find(recent_.begin(), recent_.end(), hash) != recent_.end())
        return true;
    recent_[nextRecent_] = hash;
    nextRecent_ = (nextRecent_ + 1) % mostRecent;
    return false;
}

} // namespace vorta::firebird
