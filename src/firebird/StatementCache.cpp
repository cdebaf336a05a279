#include "firebird/StatementCache.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace vorta::firebird {

namespace {

template <typename Integer>
bool put(unsigned char* place, qint64 value) {
    if (value < std::numeric_limits<Integer>::min() || value > std::numeric_limits<Integer>::max())
        return false;
    const auto fitting = static_cast<Integer>(value);
    std::memcpy(place, &fitting, sizeof fitting);
    return true;
}

} // namespace

std::unique_ptr<PreparedStatement> PreparedStatement::Make(Firebird::IAttachment& attachment,
                                                           Firebird::ITransaction& transaction,
                                                           const QByteArray& text) {
    try {
        Status status;
        auto made = std::make_unique<PreparedStatement>();
        made->statement_.reset(attachment.prepare(&status, &transaction, static_cast<unsigned>(text.size()),
                                                  text.constData(), SQL_DIALECT_V6,
                                                  Firebird::IStatement::PREPARE_PREFETCH_METADATA));
        made->input_.reset(made->statement_->getInputMetadata(&status));
        return made->describe() ? std::move(made) : nullptr;
    } catch (const Firebird::FbException&) {
        // The text as the flow sent it tells its own failure, if it has one.
        return nullptr;
    }
}

bool PreparedStatement::describe() {
    Status status;
    const unsigned count = input_->getCount(&status);
    for (unsigned i = 0; i < count; ++i) {
        const unsigned type = input_->getType(&status, i) & ~1u;
        const bool integer =
            (type == SQL_SHORT || type == SQL_LONG || type == SQL_INT64) && input_->getScale(&status, i) == 0;
        if (!integer)
            return false;
        parameters_.push_back({type, input_->getOffset(&status, i), input_->getNullOffset(&status, i)});
    }
    message_.assign(input_->getMessageLength(&status), 0);
    return true;
}

bool PreparedStatement::bind(std::span<const qint64> integers) {
    if (integers.size() != parameters_.size())
        return false;
    for (std::size_t i = 0; i < integers.size(); ++i) {
        unsigned char* const place = message_.data() + parameters_[i].offset;
        const unsigned type = parameters_[i].type;
        const bool fits = type == SQL_SHORT  ? put<qint16>(place, integers[i])
                          : type == SQL_LONG ? put<qint32>(place, integers[i])
                                             : put<qint64>(place, integers[i]);
        if (!fits)
            return false;
    }
    return true;
}

PreparedStatement* StatementCache::find(Firebird::IAttachment& attachment, Firebird::ITransaction& transaction,
                                        const QString& text) {
    const auto known =
        std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.text == text; });
    if (known != entries_.end()) {
        entries_.splice(entries_.begin(), entries_, known);
        return entries_.front().prepared.get();
    }
    entries_.push_front({text, PreparedStatement::Make(attachment, transaction, text.toUtf8())});
    if (entries_.size() > mostEntries)
        entries_.pop_back();
    return entries_.front().prepared.get();
}

} // namespace vorta::firebird
