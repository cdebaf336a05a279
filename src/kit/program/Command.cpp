#include "kit/program/Command.h"

#include "base/RuntimeError.h"
#include "kit/Bases.h"
#include "system/Endings.h"
#include "system/Session.h"

#include <QFile>

#include <algorithm>

namespace vorta::program {

Arguments::Arguments(const QStringList& words, const QStringList& withValue, const QStringList& without) {
    for (qsizetype i = 0; i < words.size(); ++i) {
        const QString& word = words[i];
        if (withValue.contains(word) && i + 1 < words.size())
            options_[word] = words[++i];
        else if (without.contains(word))
            options_[word] = {};
        else if (word.startsWith(u"--"))
            wrong_ = true;
        else
            rest_ << word;
    }
}

QString Arguments::value(const QString& option, const QString& otherwise) const {
    const auto found = options_.find(option);
    return found == options_.end() ? otherwise : found->second;
}

QString Arguments::base() const {
    return value(u"--base"_s, kit::BaseNames().front()).toUpper();
}

bool Arguments::right(qsizetype words) const {
    return !wrong_ && rest_.size() == words && !home().isEmpty() && kit::BaseNames().contains(base());
}

void Say(FILE* where, const QString& line) {
    system::Write(where, line + u'\n');
}

Outcome Report(const std::vector<kit::Finding>& findings) {
    for (const kit::Finding& finding : findings)
        Say(stdout, (finding.right ? u"ok     "_s : u"FALTA  "_s) + finding.words);
    const auto faults = std::count_if(findings.begin(), findings.end(), [](const auto& each) { return !each.right; });
    Say(stdout, faults == 0   ? u"Nenhuma falta encontrada"_s
                : faults == 1 ? u"1 falta encontrada"_s
                              : u"%1 faltas encontradas"_s.arg(faults));
    return faults == 0 ? succeeded : failed;
}

void RequireInstallation(const QString& home) {
    const kit::Layout layout(home);
    if (!QFile::exists(layout.config(u"server_aplic.ini"_s)) && !QFile::exists(layout.config(u"server.ini"_s)))
        throw RuntimeError(errorNumber::FileNotFound, u"%1 não contém uma instalação"_s.arg(layout.home));
}

// The engine may have to come to the end of a long call first.
ProgressLine::ProgressLine() {
    system::NoteEndings(system::IsTerminal(stderr) ? "\r\033[KInterrompendo...\n" : nullptr);
}

void ProgressLine::stopIfWanted() {
    if (system::EndingWanted())
        throw kit::Interrupted();
}

std::vector<kit::Finding>
ProgressLine::Find(const std::function<std::vector<kit::Finding>(const kit::Progress&)>& look) {
    ProgressLine progress;
    std::vector<kit::Finding> found = look(std::ref(progress));
    stopIfWanted();
    return found;
}

void ProgressLine::operator()(const QString& what, qint64 done, qint64 all) {
    stopIfWanted();
    constexpr qint64 readable = 200;
    static const bool terminal = system::IsTerminal(stderr);
    if (!terminal || (since_.isValid() && since_.elapsed() < readable && done != all))
        return;
    since_.start();
    const QString line = all > 0    ? u"%1: %2 de %3"_s.arg(what).arg(done).arg(all)
                         : done > 0 ? u"%1: %2"_s.arg(what).arg(done)
                                    : what;
    system::Write(stderr, u"\r\033[K"_s + line);
    shown_ = true;
}

ProgressLine::~ProgressLine() {
    system::EndOnWish();
    if (shown_)
        Say(stderr, {});
}

} // namespace vorta::program
