#include "audit/Spill.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/WhyNotWritten.h"

#include <QDir>
#include <algorithm>
#include <bit>
#include <limits>
#include <utility>

namespace vorta::audit {

namespace {

constexpr int partShift = std::numeric_limits<quint64>::digits - std::countr_zero(Spill::parts);

} // namespace

void Spill::add(const KeyOfPerson& key) {
    Part& part = parts_[key.hash >> partShift];
    part.waiting.push_back(key);
    ++size_;
    if (part.waiting.size() == keysAtOnce)
        write(part);
}

void Spill::write(Part& part) {
    if (!part.file)
        part.file = std::make_unique<QTemporaryFile>();
    const auto bytes = static_cast<qint64>(part.waiting.size()) * static_cast<qint64>(sizeof(KeyOfPerson));
    const bool open = part.file->isOpen() || part.file->open();
    if (!open || part.file->write(reinterpret_cast<const char*>(part.waiting.data()), bytes) != bytes ||
        !part.file->flush()) {
        const QString folder = QDir::tempPath();
        throw RuntimeError(errorNumber::PathRefused,
                           u"Não foi possível gravar em %1: %2"_s.arg(folder, WhyNotWritten(folder + u"/pessoas"_s)));
    }
    part.waiting.clear();
}

std::vector<KeyOfPerson> Spill::take(std::size_t number) {
    Part part = std::exchange(parts_[number], {});
    std::vector<KeyOfPerson> keys = std::move(part.waiting);
    if (part.file) {
        const auto before = static_cast<std::size_t>(part.file->size()) / sizeof(KeyOfPerson);
        const std::size_t behind = keys.size();
        keys.resize(behind + before);
        const qint64 bytes = part.file->size();
        if (!part.file->seek(0) || part.file->read(reinterpret_cast<char*>(keys.data() + behind), bytes) != bytes)
            throw RuntimeError(errorNumber::PathRefused,
                               u"Não foi possível ler %1: %2"_s.arg(part.file->fileName(), part.file->errorString()));
    }
    std::ranges::sort(keys);
    return keys;
}

} // namespace vorta::audit
