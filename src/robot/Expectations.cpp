#include "base/Literals.h"
#include "robot/Commands.h"
#include "robot/Player.h"

#include <QFile>
#include <algorithm>
#include <array>

namespace vorta::robot {

using namespace screen;

namespace {

using Words = const QStringList&; ///< the words behind the expectation's name

struct ExpectationRow {
    const char* name;
    int least; ///< words behind the name
    int most;
    const char* usage;
    void (*check)(Player& player, Words words);
};

void compare(const QString& what, const QString& expected, const QString& actual) {
    if (expected != actual)
        throw Failure{u"expected %1 %2, was %3"_s.arg(what, Quoted(expected), Quoted(actual))};
}

void screenName(Player& player, Words words) {
    const QString& name = player.activeScreen().name();
    if (name.compare(words[0], Qt::CaseInsensitive) != 0)
        throw Failure{u"expected the active screen %1, was %2"_s.arg(words[0], name)};
}

void caption(Player& player, Words words) {
    Screen& screen = player.activeScreen();
    compare(u"caption"_s, words[0], screen.caption());
    if (const auto seen = player.hands().seenCaption(screen))
        compare(u"caption of the window"_s, words[0], *seen);
}

void focus(Player& player, Words words) {
    const Field& field = player.field(words[0]);
    Screen& screen = player.activeScreen();
    const QString actual = screen.focus() ? screen.focus()->name() : u"no field"_s;
    if (screen.focus() != &field)
        throw Failure{u"expected the focus on %1, was on %2"_s.arg(field.name(), actual)};
    if (const auto seen = player.hands().seenFocus(screen))
        compare(u"the focus of the window on"_s, field.name(), *seen);
}

struct PlaceName {
    const char* name;
    Place place;
};

constexpr std::array placeNames{
    PlaceName{"anywhere", Place::Anywhere},
    PlaceName{"centre", Place::Centre},
    PlaceName{"left", Place::LeftBorder},
};

void place(Player& player, Words words) {
    Screen& screen = player.activeScreen();
    const auto found = std::find_if(placeNames.begin(), placeNames.end(),
                                    [&](const PlaceName& row) { return row.place == screen.place(); });
    compare(u"place"_s, words[0], QLatin1StringView(found->name));
    if (player.hands().seenInPlace(screen) == false)
        throw Failure{u"expected the window in its place, it stands elsewhere"_s};
}

/// Idle is a blank or no text at all; everything else is one letter.
void mode(Player& player, Words words) {
    compare(u"mode"_s, words[0].trimmed(), player.contextToRead().ModoTela.trimmed());
}

/// A truth of the context may be written in the small letters of the other expectations.
QString inTheCaseOf(const QString& actual, const QString& expected) {
    const bool truth = actual == u"True" || actual == u"False";
    return truth && expected.compare(actual, Qt::CaseInsensitive) == 0 ? actual : expected;
}

void context(Player& player, Words words) {
    const QString actual = OneLineBreak(player.contextToRead().Campo(words[0]));
    compare(u"context %1"_s.arg(words[0]), inTheCaseOf(actual, OneLineBreak(words[1])), actual);
}

const char* iconName(Icon icon) {
    switch (icon) {
    case Icon::Information:
        return "information";
    case Icon::Critical:
        return "critical";
    case Icon::None:
        break;
    }
    return "none";
}

const char* buttonsName(Buttons buttons) {
    switch (buttons) {
    case Buttons::YesNo:
        return "YesNo";
    case Buttons::YesNoCancel:
        return "YesNoCancel";
    case Buttons::OK:
        break;
    }
    return "OK";
}

/// A box without a title of its own is also met by the empty title.
bool titleMatches(const Box& box, const QString& title) {
    return title == box.title || (box.title.isEmpty() && title == Program::applicationTitle());
}

struct BoxOption {
    const char* name;
    QStringList allowed; ///< empty: any text
};

const std::array boxOptions{
    BoxOption{"title", {}},
    BoxOption{"icon", {u"information"_s, u"critical"_s, u"none"_s}},
    BoxOption{"buttons", {u"OK"_s, u"YesNo"_s, u"YesNoCancel"_s}},
};

void checkBoxOption(const Box& box, const QString& name, const QString& value) {
    const auto option = std::find_if(boxOptions.begin(), boxOptions.end(),
                                     [&](const BoxOption& row) { return name == QLatin1StringView(row.name); });
    if (option == boxOptions.end() || (!option->allowed.isEmpty() && !option->allowed.contains(value)))
        throw Failure{u"expected title, icon or buttons of a box, was %1 %2"_s.arg(name, value)};
    if (name == u"title" && !titleMatches(box, value))
        compare(u"box title"_s, value, box.title.isEmpty() ? Program::applicationTitle() : box.title);
    if (name == u"icon")
        compare(u"box icon"_s, value, QLatin1StringView(iconName(box.icon)));
    if (name == u"buttons")
        compare(u"box buttons"_s, value, QLatin1StringView(buttonsName(box.buttons)));
}

void box(Player& player, Words words) {
    if (words.size() % 2 == 0)
        throw Failure{u"expected pairs of words behind the text of a box"_s};
    Journal& journal = player.journal();
    if (journal.looked == journal.boxes.size())
        throw Failure{u"expected box %1, there was none"_s.arg(Quoted(words[0]))};
    const Box& oldest = journal.boxes[journal.looked++];
    const QString wanted = QString(words[0]).replace(u"{home}"_s, player.home());
    compare(u"box"_s, OneLineBreak(wanted), OneLineBreak(oldest.text));
    for (qsizetype at = 1; at < words.size(); at += 2)
        checkBoxOption(oldest, words[at], words[at + 1]);
}

void nobox(Player& player, Words) {
    const Journal& journal = player.journal();
    if (journal.looked < journal.boxes.size())
        throw Failure{
            u"expected no further box, there was %1"_s.arg(Quoted(OneLineBreak(journal.boxes[journal.looked].text)))};
}

/// What helps to see why a statement was not found: the one with the longest common beginning.
QString nearest(const QStringList& statements, const QString& wanted) {
    QString best;
    qsizetype longest = -1;
    for (const QString& statement : statements) {
        const auto common = std::mismatch(statement.begin(), statement.end(), wanted.begin(), wanted.end()).first;
        if (const qsizetype length = common - statement.begin(); length > longest) {
            longest = length;
            best = statement;
        }
    }
    return best;
}

void sql(Player& player, Words words) {
    Journal& journal = player.journal();
    const qsizetype found = journal.statements.indexOf(words[0], journal.searched);
    if (found >= 0) {
        journal.searched = found + 1;
        return;
    }
    const QStringList rest = journal.statements.mid(journal.searched);
    if (rest.isEmpty())
        throw Failure{u"expected statement %1, no statement was left"_s.arg(Quoted(words[0]))};
    const bool earlier = journal.statements.contains(words[0]);
    throw Failure{u"expected statement %1, %2%3 others were sent, the nearest %4"_s.arg(
        Quoted(words[0]), earlier ? u"sent before the last one found; "_s : QString(), QString::number(rest.size()),
        Quoted(nearest(rest, words[0])))};
}

void nosql(Player& player, Words words) {
    for (const QString& statement : player.journal().statements)
        if (statement.contains(words[0]))
            throw Failure{u"expected no statement with %1, there was %2"_s.arg(Quoted(words[0]), Quoted(statement))};
}

void query(Player& player, Words words) {
    compare(u"rows"_s, words[1], player.stage().query(player.mainBase(), words[0]));
}

void cepquery(Player& player, Words words) {
    compare(u"rows"_s, words[1], player.stage().query(Base::PostalCode, words[0]));
}

void mail(Player& player, Words words) {
    compare(u"address"_s, words[0], player.lastAddress());
}

void clipboard(Player& player, Words words) {
    compare(u"clipboard"_s, words[0], player.clipboard());
}

/// The text of a file of the installation, without the mark of its encoding.
void file(Player& player, Words words) {
    QFile read(player.home() + u'/' + words[0]);
    if (!read.open(QIODevice::ReadOnly))
        throw Failure{u"expected a file %1, it cannot be read: %2"_s.arg(words[0], read.errorString())};
    QString text = QString::fromUtf8(read.readAll());
    compare(words[0], words[1], OneLineBreak(text.startsWith(QChar::ByteOrderMark) ? text.sliced(1) : text));
}

void nofile(Player& player, Words words) {
    if (QFile::exists(player.home() + u'/' + words[0]))
        throw Failure{u"expected no file %1, it is there"_s.arg(words[0])};
}

void page(Player& player, Words words) {
    if (!player.lastPage().contains(words[0]))
        throw Failure{u"expected a page with %1, was %2"_s.arg(Quoted(words[0]), Quoted(player.lastPage()))};
}

void running(Player& player, Words) {
    player.activeScreen();
}

void ended(Player& player, Words words) {
    if (!player.hasLaunched())
        throw Failure{u"expected an ended program, it has not been launched"_s};
    if (player.isRunning())
        throw Failure{u"expected an ended program, it runs on %1"_s.arg(player.activeScreen().name())};
    const auto& error = player.lastCast().program().failure();
    const QString actual = error ? u"run-time error %1: %2 %3"_s.arg(QString::number(error->number()),
                                                                     error->description(), error->statement())
                                 : u"without one"_s;
    if (words.isEmpty() && error)
        throw Failure{u"expected an end without a run-time error, was %1"_s.arg(actual)};
    if (!words.isEmpty() && (!error || error->number() != NumberWord(words[0])))
        throw Failure{u"expected an end with run-time error %1, was %2"_s.arg(words[0], actual)};
}

constexpr std::array expectations{
    ExpectationRow{"screen", 1, 1, "expect screen NAME", screenName},
    ExpectationRow{"caption", 1, 1, "expect caption \"text\"", caption},
    ExpectationRow{"focus", 1, 1, "expect focus FIELD", focus},
    ExpectationRow{"place", 1, 1, "expect place centre|left|anywhere", place},
    ExpectationRow{"mode", 1, 1, "expect mode \"I\"", mode},
    ExpectationRow{"context", 2, 2, "expect context NAME \"text\"", context},
    ExpectationRow{"box", 1, 7, "expect box \"text\" [title \"T\"] [icon I] [buttons B]", box},
    ExpectationRow{"nobox", 0, 0, "expect nobox", nobox},
    ExpectationRow{"sql", 1, 1, "expect sql \"statement\"", sql},
    ExpectationRow{"nosql", 1, 1, "expect nosql \"text\"", nosql},
    ExpectationRow{"query", 2, 2, "expect query \"select\" \"rows\"", query},
    ExpectationRow{"cepquery", 2, 2, "expect cepquery \"select\" \"rows\"", cepquery},
    ExpectationRow{"mail", 1, 1, "expect mail \"address\"", mail},
    ExpectationRow{"clipboard", 1, 1, "expect clipboard \"text\"", clipboard},
    ExpectationRow{"file", 2, 2, "expect file PATH \"text\"", file},
    ExpectationRow{"nofile", 1, 1, "expect nofile PATH", nofile},
    ExpectationRow{"page", 1, 1, "expect page \"text\"", page},
    ExpectationRow{"running", 0, 0, "expect running", running},
    ExpectationRow{"ended", 0, 1, "expect ended [NUMBER]", ended},
};

/// The value as it is compared: truths and numbers must be some, colours count as 32 bits, texts know one line break
/// only.
QString comparable(ValueKind kind, const QString& value) {
    switch (kind) {
    case ValueKind::Truth:
        if (value != u"true" && value != u"false")
            throw Failure{u"expected true or false, was %1"_s.arg(value)};
        return value;
    case ValueKind::Number:
        return QString::number(NumberWord(value));
    case ValueKind::Colour: {
        bool isNumber = false;
        const qint64 colour = value.toLongLong(&isNumber);
        if (!isNumber)
            throw Failure{u"expected a decimal colour, was %1"_s.arg(value)};
        return QString::number(static_cast<qint32>(static_cast<quint32>(colour)));
    }
    case ValueKind::Text:
        break;
    }
    return OneLineBreak(value);
}

/// The caption of a button without the mark of its accelerator.
QString unmarked(const Field& field, const Question& question, QString text) {
    return field.kind() == FieldKind::Button && question.property == u"text" ? text.remove(u'&') : text;
}

void checkField(Player& player, Words words) {
    Field& field = player.field(words[0]);
    const Property* property = FindProperty(words.value(1));
    if (!property)
        throw Failure{u"expected a property, was %1"_s.arg(words.value(1, u"none"_s))};
    if (words.size() != 3 + property->numbers)
        throw Failure{u"expected %1 words behind %2, there were %3"_s.arg(QString::number(1 + property->numbers),
                                                                          words[1], QString::number(words.size() - 2))};
    const Question question{words[1], property->numbers > 0 ? NumberWord(words[2]) : 0,
                            property->numbers > 1 ? NumberWord(words[3]) : 0};
    const QString what = words.first(2 + property->numbers).join(u' ');
    const QString expected = unmarked(field, question, comparable(property->kind, words.last()));
    compare(what, expected, unmarked(field, question, comparable(property->kind, Look(field, question))));
    if (const auto seen = player.hands().seen(field, question))
        compare(what + u" in the window"_s, expected, unmarked(field, question, comparable(property->kind, *seen)));
}

} // namespace

void RunExpectation(Player& player, const QStringList& words) {
    const auto found = std::find_if(expectations.begin(), expectations.end(),
                                    [&](const ExpectationRow& row) { return words[0] == QLatin1StringView(row.name); });
    if (found == expectations.end())
        return checkField(player, words);
    const QStringList rest = words.mid(1);
    if (rest.size() < found->least || rest.size() > found->most)
        throw Failure{u"expected %1, there were %2 words"_s.arg(QLatin1StringView(found->usage),
                                                                QString::number(words.size() + 1))};
    found->check(player, rest);
}

} // namespace vorta::robot
