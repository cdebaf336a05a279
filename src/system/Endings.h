#pragma once

#include <functional>

class QObject;

/// The wish, from outside, that this process ends: the session closes, somebody presses Ctrl+C.
namespace vorta::system {

/// Makes the event loop call `onRequest` at each such wish, as long as the owner lives; `atOnce` is called at the wish
/// itself, in whatever the process is doing, and may do next to nothing.
void OnEnding(QObject* owner, std::function<void()> onRequest, void (*atOnce)());
/// Begins to listen, or begins again, behind a library that has taken the wishes for itself.
void ListenForEndings();

/// For a program without an event loop: from now on a wish is only noted.
void NoteEndings();
bool EndingWanted();
/// For a part of the program that may be interrupted: a wish ends the process again.
void EndOnWish();

} // namespace vorta::system
