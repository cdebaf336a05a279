#pragma once

#include <QByteArray>

#include <functional>
#include <optional>

/// Work in a process that begins as a copy of this one, so that what it breaks it breaks alone; in this process itself
/// where the system knows no such copies.
namespace vorta::system {

/// Hands bytes to the process that waits; false when nobody reads them any more.
using TellFromApart = std::function<bool(const QByteArray& message)>;

struct ApartEnd {
    QByteArray told; ///< everything that it has told
    enum class How { Ended, Crashed, OutOfTime } how = How::Ended;
    int number = 0; ///< the exit status, or what has ended it
};

/// Does the work in such a process, which ends behind it with 0, and waits for its end. Nothing when the system has no
/// process for it.
std::optional<ApartEnd> DoApart(const std::function<void(const TellFromApart& tell)>& work);
/// For the work: lets this process fall after that many seconds, counted anew at each call.
void LimitTime(unsigned seconds);

} // namespace vorta::system
