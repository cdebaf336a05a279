#include "robot/Player.h"

#include "base/Literals.h"
#include "robot/Commands.h"

#include <QFileInfo>
#include <array>

namespace vorta::robot {

using namespace screen;

namespace {

/// The look of a shown screen lasts as long as the modal wait on it, however that ends.
class Shown {
  public:
    Shown(Hands& hands, Screen& screen) : hands_(hands), screen_(screen) { hands_.show(screen_); }
    ~Shown() { hands_.hide(screen_); }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

  private:
    Hands& hands_;
    Screen& screen_;
};

bool offers(Buttons buttons, Answer answer) {
    switch (answer) {
    case Answer::OK:
        return buttons == Buttons::OK;
    case Answer::Yes:
    case Answer::No:
        return buttons != Buttons::OK;
    case Answer::Cancel:
        return buttons == Buttons::YesNoCancel;
    }
    return false;
}

} // namespace

Base BaseOfLaunch(const QString& launchString, const QString& home) {
    // The marker file makes every launch one of the production environment.
    if (QFileInfo::exists(home + u"/config/ORBALUX.txt"_s))
        return Base::Main;
    const QString environment = launchString.section(u'^', 2, 2);
    if (environment == u"HIST")
        return Base::History;
    return environment == u"DEV" ? Base::Development : Base::Main;
}

Player::Player(const Scenario& scenario, Stage& stage, HandsFactory hands, data::StatementTrace trace)
    : scenario_(scenario), stage_(stage), makeHands_(std::move(hands)), trace_(std::move(trace)) {}

Player::~Player() = default;

std::optional<Verdict> Player::play() {
    playWhile([] { return true; });
    if (!verdict_)
        checkLeftovers();
    return verdict_;
}

bool Player::isOver() {
    if (verdict_ || next_ < scenario_.commands.size())
        return verdict_.has_value();
    try {
        if (const std::optional<QStringList> words = onward ? onward(*this) : std::nullopt) {
            scenario_.commands.push_back({static_cast<int>(next_) + 1, *words});
            return false;
        }
    } catch (const Failure& failure) {
        fail(static_cast<int>(next_), failure.message);
    }
    return true;
}

void Player::playWhile(const std::function<bool()>& open) {
    while (open() && !isOver())
        step();
}

void Player::step() {
    const Command command = scenario_.commands[next_++]; // more may come while it runs
    line_ = command.line;
    if (onLine)
        onLine(line_);
    try {
        RunCommand(*this, command.words);
    } catch (const Failure& failure) {
        fail(command.line, failure.message);
    } catch (const RuntimeError& error) {
        fail(command.line, u"error %1: %2"_s.arg(QString::number(error.number()), error.description()));
    }
}

void Player::fail(int line, const QString& message) {
    if (!verdict_)
        verdict_ = Verdict{line, message};
}

void Player::checkLeftovers() {
    if (!answers_.empty())
        fail(answers_.front().line, u"expected a box that asks for this answer, there was none"_s);
    if (!files_.isEmpty())
        fail(line_, u"expected a question for the file %1, there was none"_s.arg(files_.first()));
}

Cast& Player::cast() {
    if (cast_ && (!launched_ || isRunning()))
        return *cast_;
    hands_.reset();
    cast_ = stage_.cast(*this, [this](const QString& statement) {
        journal_.statements += statement;
        if (trace_)
            trace_(statement);
    });
    hands_ = makeHands_(cast_->program(), cast_->user());
    launched_ = false;
    return *cast_;
}

void Player::launch(const QString& launchString) {
    if (isRunning())
        throw Failure{u"expected a program that is not running, it runs already"_s};
    Cast& program = cast();
    launched_ = started_ = true;
    launchedAt_ = next_;
    program.start(launchString);
    started_ = false;
}

bool Player::isRunning() const {
    return launched_ && started_ && !cast_->program().hasEnded();
}

Screen& Player::activeScreen() {
    if (!launched_)
        throw Failure{u"expected a running program, it has not been launched"_s};
    if (!isRunning() || !cast_->program().activeScreen()) {
        const auto& error = cast_->program().failure();
        throw Failure{error ? u"expected a running program, it has ended with run-time error %1: %2 %3"_s.arg(
                                  QString::number(error->number()), error->description(), error->statement())
                            : u"expected a running program, it has ended"_s};
    }
    return *cast_->program().activeScreen();
}

Field& Player::field(const QString& name) {
    Screen& screen = activeScreen();
    if (Field* found = screen.findField(name))
        return *found;
    QStringList names;
    for (const Field* known : screen.fields())
        names += known->name();
    throw Failure{u"expected a field %1, screen %2 has %3"_s.arg(name, screen.name(), names.join(u' '))};
}

Field& Player::reach(const QString& name, bool disabledToo) {
    Field& found = field(name);
    for (const Field* part = &found; part; part = part->strip())
        if (!part->visible())
            throw Failure{u"expected %1 to be visible, it is hidden"_s.arg(name)};
    if (!disabledToo && !found.enabled())
        throw Failure{u"expected %1 to be enabled, it is disabled"_s.arg(name)};
    chooseTabsOf(found);
    return found;
}

void Player::chooseTabsOf(const Field& field) {
    TabStrip* strip = field.strip();
    if (!strip)
        return;
    chooseTabsOf(*strip);
    if (strip->current() != field.page())
        hands_->chooseTab(*strip, field.page());
}

Base Player::mainBase() const {
    QString launchString;
    for (size_t at = 0; at < scenario_.commands.size(); ++at) {
        const QStringList& words = scenario_.commands[at].words;
        if (words.size() != 2 || words[0] != u"launch")
            continue;
        launchString = words[1];
        if (isRunning() ? at + 1 >= launchedAt_ : at + 1 >= next_)
            break;
    }
    return BaseOfLaunch(launchString, home());
}

Answer Player::messageBox(const Box& box) {
    // The box of a run-time error is the machine's own word and no box of a screen; `expect ended` looks at that.
    Program& program = cast_->program();
    if (program.hasEnded())
        return Answer::OK;
    journal_.boxes.push_back(box);
    const int escapes = takeEscapes();
    if (escapes > 0 && EscapeAnswer(box.buttons))
        return hands_->answer(box, {*EscapeAnswer(box.buttons), escapes});
    if (box.buttons == Buttons::OK) {
        if (!answers_.empty() && answers_.front().answer == Answer::OK)
            answers_.pop_front();
        return hands_->answer(box, {Answer::OK, 0});
    }
    if (answers_.empty() && onBox)
        answers_.push_back({onBox(box), line_});
    if (answers_.empty()) {
        fail(line_, u"expected no box that asks, there was %1 and no answer waiting"_s.arg(Quoted(box.text)));
        program.End();
    }
    const PreparedAnswer prepared = answers_.front();
    answers_.pop_front();
    if (!offers(box.buttons, *prepared.answer)) {
        fail(prepared.line, u"expected a box with this answer, there was %1"_s.arg(Quoted(box.text)));
        program.End();
    }
    return hands_->answer(box, {*prepared.answer, escapes});
}

QString Player::askForFile(const QString& suggested) {
    if (files_.isEmpty()) {
        fail(line_, u"expected no question for a file, there was one for %1 and no answer waiting"_s.arg(suggested));
        cast_->program().End();
    }
    return files_.takeFirst();
}

void Player::writePdf(const QString& html, const QString& path) {
    lastPage_ = html;
    hands_->writePdf(html, path);
}

/// How often Escape is pressed before the next answer is given.
int Player::takeEscapes() {
    int escapes = 0;
    for (; !answers_.empty() && !answers_.front().answer; answers_.pop_front())
        ++escapes;
    return escapes;
}

void Player::runModal(Screen& screen) {
    const Shown shown(*hands_, screen);
    Program& program = cast_->program();
    playWhile([&] { return screen.isLoaded() && !program.hasEnded(); });
    // Behind the last command no handler may go on that waits for this screen, nor one after a failure.
    if (!program.hasEnded() && (verdict_ || screen.isLoaded()))
        program.End();
}

QDateTime Player::now() const {
    return clock_ ? *clock_ : Platform::now();
}

QString Quoted(const QString& text) {
    QString escaped = text;
    escaped.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s);
    escaped.replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s).replace(u'\t', u"\\t"_s);
    return u'"' + escaped + u'"';
}

QString OneLineBreak(QString text) {
    return text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

} // namespace vorta::robot
