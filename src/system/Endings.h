#pragma once

#include <functional>
#include <memory>

class QObject;

/// The wish, from outside, that this process ends: the session closes, somebody presses Ctrl+C.
namespace vorta::system {

/// Makes the event loop call `onRequest` at each such wish, as long as the owner lives; `atOnce` is called at the wish
/// itself, in whatever the process is doing, and may do next to nothing.
void OnEnding(QObject* owner, std::function<void()> onRequest, void (*atOnce)());
/// Begins to listen.
void ListenForEndings();

/// For a program without an event loop: from now on a wish is only noted, and answered at once by these words to the
/// error output, if any are given; they have to stay.
void NoteEndings(const char* words = nullptr);
bool EndingWanted();
/// For a part of the program that may be interrupted: a wish ends the process again.
void EndOnWish();

/// Around a call of a library that takes the wishes for itself: behind it they are heard as before, by whoever has
/// begun to listen or to note; also those that have come meanwhile to this thread, unless these shall not wait for the
/// call.
class HeldEndings {
  public:
    explicit HeldEndings(bool wait);
    ~HeldEndings();
    HeldEndings(const HeldEndings&) = delete;
    HeldEndings& operator=(const HeldEndings&) = delete;

  private:
    struct Before;
    std::unique_ptr<Before> before_;
};

} // namespace vorta::system
