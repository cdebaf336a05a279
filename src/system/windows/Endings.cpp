#include "system/Endings.h"

#include <QCoreApplication>
#include <QPointer>

#include <atomic>
#include <cstdio>
#include <windows.h>

namespace vorta::system {

namespace {

std::atomic<void (*)()> first{nullptr};
std::atomic<bool> hearing{false};
std::atomic<bool> noted{false};
std::atomic<bool> wanted{false};
std::atomic<const char*> answer{nullptr};
QPointer<QObject> listener;
std::function<void()> request;

/// Called in a thread of the system's; the process lives as long as this does not come back from a closed console.
BOOL WINAPI requested(DWORD) {
    if (const auto work = first.load())
        work();
    wanted = true;
    if (noted) {
        if (const char* const words = answer.load())
            std::fputs(words, stderr);
        return TRUE;
    }
    if (!listener)
        return FALSE;
    QMetaObject::invokeMethod(
        listener, [] { request(); }, Qt::QueuedConnection);
    return TRUE;
}

} // namespace

// The end of a session comes to the windows themselves, as a wish to close them.
void OnEnding(QObject* owner, std::function<void()> onRequest, void (*atOnce)()) {
    first = atOnce;
    listener = owner;
    request = std::move(onRequest);
}

// The handler that was added last is asked first.
void ListenForEndings() {
    hearing = true;
    ::SetConsoleCtrlHandler(requested, FALSE);
    ::SetConsoleCtrlHandler(requested, TRUE);
}

void NoteEndings(const char* words) {
    answer = words;
    noted = true;
    ListenForEndings();
}

bool EndingWanted() {
    return wanted;
}

void EndOnWish() {
    noted = false;
}

// They come in a thread of the system's, which nothing holds back.
struct HeldEndings::Before {};

HeldEndings::HeldEndings(bool) {}

HeldEndings::~HeldEndings() {
    if (hearing)
        ListenForEndings();
}

} // namespace vorta::system
