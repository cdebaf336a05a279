#include "robot/Commands.h"

#include "base/Literals.h"
#include "base/Moment.h"
#include "robot/Player.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>

namespace vorta::robot {

using namespace screen;

namespace {

using Words = const QStringList&; ///< the words behind the command's name

/// When a command makes sense.
enum class Phase { Any, Running };

struct CommandRow {
    const char* name;
    int least; ///< words behind the name
    int most;
    const char* usage;
    Phase phase;
    void (*run)(Player& player, Words words);
};

// Before the launch.

void today(Player& player, Words words) {
    const QDate date = QDate::fromString(words[0], u"yyyy-MM-dd"_s);
    const QTime time = words.size() > 1 ? QTime::fromString(words[1], u"hh:mm"_s) : QTime(0, 0);
    if (!date.isValid() || !time.isValid())
        throw Failure{u"expected a date yyyy-mm-dd and a time hh:mm, was %1"_s.arg(words.join(u' '))};
    player.setClock(Moment(date, time));
}

void sql(Player& player, Words words) {
    player.stage().execute(player.mainBase(), words[0]);
}

void sqlcep(Player& player, Words words) {
    player.stage().execute(Base::PostalCode, words[0]);
}

/// The full path of a file of the installation; a failure for a path that leads out of it.
QString installed(const Player& player, const QString& path) {
    const QString relative = QDir::cleanPath(Platform::localPath(path));
    if (relative.isEmpty() || QDir::isAbsolutePath(relative) || relative == u".." || relative.startsWith(u"../"))
        throw Failure{u"expected a path inside the installation, was %1"_s.arg(path)};
    return player.home() + u'/' + relative;
}

void file(Player& player, Words words) {
    const QString path = installed(player, words[0]);
    QDir().mkpath(QFileInfo(path).path());
    QFile target(path);
    QString text = words[1];
    const QByteArray bytes = text.replace(u"{home}"_s, player.home()).toUtf8();
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size())
        throw Failure{u"expected to write %1: %2"_s.arg(words[0], target.errorString())};
}

void nofile(Player& player, Words words) {
    const QString path = installed(player, words[0]);
    if (QFileInfo::exists(path) && !QFile::remove(path))
        throw Failure{u"expected to remove %1, it stays"_s.arg(words[0])};
}

void launch(Player& player, Words words) {
    player.launch(words[0]);
}

// As another program of the ERP would.

void context(Player& player, Words words) {
    player.cast().context().GravaCampo(words[0], words[1]);
}

void open(Player& player, Words words) {
    player.activeScreen();
    ContextoExecucao& context = player.cast().context();
    if (!context.ConheceTela(words[0]))
        throw Failure{u"expected a screen %1, the program has none"_s.arg(words[0])};
    player.cast().program().dispatch([&] { context.MostraTela(words[0]); });
}

void set(Player& player, Words words) {
    Field& field = player.field(words[0]);
    const QString& text = words[1];
    player.cast().program().dispatch([&] {
        auto* option = dynamic_cast<Option*>(&field);
        auto* check = dynamic_cast<Check*>(&field);
        const bool truth = text == u"true" || text == u"false";
        if (option && truth)
            option->setValue(text == u"true");
        else if (check && truth)
            check->setChecked(text == u"true");
        else
            field.setText(text);
    });
}

// What a user does.

/// The field, when it is of the kind that the command needs.
template <typename Kind>
Kind& need(Field& field, const char* kind) {
    if (auto* found = dynamic_cast<Kind*>(&field))
        return *found;
    throw Failure{u"expected %1 to be %2, it is none"_s.arg(field.name(), QLatin1StringView(kind))};
}

Field& needFocusable(Field& field) {
    if (!field.takesFocus())
        throw Failure{u"expected %1 to take the focus, it is a field that never does"_s.arg(field.name())};
    return field;
}

void focus(Player& player, Words words) {
    player.hands().focus(needFocusable(player.reach(words[0])));
}

void leave(Player& player, Words) {
    player.hands().leave(player.activeScreen());
}

const QString altPrefix = u"Alt+"_s;

struct NamedKey {
    const char* name;
    QChar character; ///< as it may stand inside a typed text
    Key key;
};

constexpr std::array namedKeys{
    NamedKey{"Enter", u'\n', Key::Enter},
    NamedKey{"Enter", u'\r', Key::Enter},
    NamedKey{"Tab", u'\t', Key::Tab},
    NamedKey{"Backspace", u'\b', Key::Backspace},
    NamedKey{"BackTab", {}, Key::BackTab},
    NamedKey{"Delete", {}, Key::Delete},
    NamedKey{"Escape", u'\x1b', Key::Escape},
    NamedKey{"Left", {}, Key::Left},
    NamedKey{"Right", {}, Key::Right},
    NamedKey{"Up", {}, Key::Up},
    NamedKey{"Down", {}, Key::Down},
    NamedKey{"Home", {}, Key::Home},
    NamedKey{"End", {}, Key::End},
    NamedKey{"PageUp", {}, Key::PageUp},
    NamedKey{"PageDown", {}, Key::PageDown},
};

Field& focused(Player& player) {
    Field* field = player.activeScreen().focus();
    if (!field)
        throw Failure{u"expected a field with the focus, there is none"_s};
    return *field;
}

void typeOne(Player& player, QChar character) {
    const auto named = std::find_if(namedKeys.begin(), namedKeys.end(),
                                    [&](const NamedKey& row) { return row.character == character; });
    if (named != namedKeys.end())
        player.hands().key(focused(player), named->key, 0);
    else
        player.hands().character(focused(player), character);
}

void type(Player& player, Words words) {
    Field& field = player.reach(words[0]);
    needFocusable(field);
    const QString& text = words[1];
    const auto control =
        std::find_if(text.begin(), text.end(), [](QChar character) { return character.unicode() < 32; });
    player.hands().type(field, QString(text.begin(), std::distance(text.begin(), control)));
    // A key inside the text may lead to another field; what follows goes where the focus is.
    for (auto at = control; at != text.end(); ++at)
        typeOne(player, *at);
}

/// 1 to 12 for "F1" to "F12", 0 for any other word.
int functionKey(const QString& word) {
    for (int number = 1; number <= 12; ++number)
        if (word == u"F%1"_s.arg(number))
            return number;
    return 0;
}

void press(Player& player, Words words) {
    const QString& word = words[0];
    Screen& screen = player.activeScreen();
    const auto named = std::find_if(namedKeys.begin(), namedKeys.end(),
                                    [&](const NamedKey& row) { return word == QLatin1StringView(row.name); });
    const bool isNamed = named != namedKeys.end();
    const int function = functionKey(word);
    if (word == u"Ctrl+C")
        return player.hands().copy(focused(player));
    if (word.startsWith(altPrefix) && word.size() == altPrefix.size() + 1)
        return player.hands().accelerator(screen, word.back());
    if (!isNamed && function == 0 && word.size() != 1)
        throw Failure{u"expected a key, was %1"_s.arg(word)};
    if (isNamed && named->key == Key::Tab && !screen.focus()) {
        if (Field* first = screen.nextField(nullptr))
            player.hands().focus(*first);
    } else if (isNamed) {
        player.hands().key(focused(player), named->key, 0);
    } else if (function > 0) {
        player.hands().key(focused(player), Key::Function, function);
    } else {
        player.hands().character(focused(player), word[0]);
    }
}

/// A named key goes down and comes again and again, wherever the focus has gone meanwhile.
void hold(Player& player, Words words) {
    const auto named = std::find_if(namedKeys.begin(), namedKeys.end(),
                                    [&](const NamedKey& row) { return words[0] == QLatin1StringView(row.name); });
    if (named == namedKeys.end())
        throw Failure{u"expected the name of a key, was %1"_s.arg(words[0])};
    player.hands().key(focused(player), named->key, 0);
    for (int times = NumberWord(words[1]); times > 1 && player.isRunning(); --times)
        player.hands().heldKey(focused(player), named->key);
}

struct WayName {
    const char* name;
    PasteWay way;
};

constexpr std::array pasteWays{
    WayName{"keys", PasteWay::Keys},
    WayName{"menu", PasteWay::Menu},
    WayName{"drop", PasteWay::Drop},
};

void paste(Player& player, Words words) {
    const QString way = words.value(1, u"keys"_s);
    const auto found = std::find_if(pasteWays.begin(), pasteWays.end(),
                                    [&](const WayName& row) { return way == QLatin1StringView(row.name); });
    if (found == pasteWays.end())
        throw Failure{u"expected keys, menu or drop, was %1"_s.arg(way)};
    player.hands().paste(focused(player), words[0], found->way);
}

struct CellPlace {
    int row;
    int col;
};

CellPlace cellPlace(const Grid& grid, Words words) {
    const CellPlace place{NumberWord(words[1]), words.size() > 2 ? NumberWord(words[2]) : 0};
    if (place.row < 0 || place.row >= grid.Rows() || place.col < 0 || place.col >= std::max(1, grid.Cols()))
        throw Failure{u"expected %1 to have row %2 and column %3, it has %4 rows and %5 columns"_s.arg(
            grid.name(), QString::number(place.row), QString::number(place.col), QString::number(grid.Rows()),
            QString::number(grid.Cols()))};
    return place;
}

void clickOn(Player& player, Words words, bool twice) {
    Field& field = player.reach(words[0]);
    Hands& hands = player.hands();
    if (auto* grid = dynamic_cast<Grid*>(&field)) {
        if (words.size() < 2)
            throw Failure{u"expected a row to click in %1"_s.arg(field.name())};
        const CellPlace place = cellPlace(*grid, words);
        twice ? hands.doubleClickCell(*grid, place.row, place.col) : hands.clickCell(*grid, place.row, place.col);
    } else if (words.size() > 1) {
        throw Failure{u"expected %1 to be a grid, it is none"_s.arg(field.name())};
    } else {
        twice ? hands.doubleClick(field) : hands.click(field);
    }
}

void click(Player& player, Words words) {
    clickOn(player, words, false);
}

void dblclick(Player& player, Words words) {
    clickOn(player, words, true);
}

/// Opens the menu of a grid and chooses an item by its caption.
void menu(Player& player, Words words) {
    auto& grid = need<Grid>(player.reach(words[0]), "a grid");
    QStringList captions = User::gridMenu(grid);
    captions.replaceInStrings(u"&"_s, QString());
    const auto item = static_cast<int>(captions.indexOf(words[1]));
    if (item < 0)
        throw Failure{u"expected an item %1 in the menu of %2, its items are %3"_s.arg(Quoted(words[1]), grid.name(),
                                                                                       Quoted(captions.join(u'|')))};
    std::optional<int> row;
    if (words.size() > 2)
        row = cellPlace(grid, {words[0], words[2]}).row;
    if (row && *row == 0)
        throw Failure{u"expected a row of %1, the header has no menu"_s.arg(grid.name())};
    player.hands().chooseFromMenu(grid, row, item);
}

void savein(Player& player, Words words) {
    player.files() += words[0].isEmpty() ? QString() : installed(player, words[0]);
}

/// The system ends the program, as at the end of a session.
void endprogram(Player& player, Words) {
    Program& program = player.cast().program();
    program.dispatch([&] { program.End(); });
}

void drop(Player& player, Words words) {
    player.hands().dropDown(need<ListField>(player.reach(words[0]), "a list"));
}

void choose(Player& player, Words words) {
    auto& list = need<ListField>(player.reach(words[0]), "a list");
    const Screen& screen = list.screen();
    list.dropDown() ? player.hands().dropDown(list) : player.hands().focus(list);
    // As with a click: when a handler puts the focus elsewhere, nothing is picked.
    if (!player.isRunning() || &player.activeScreen() != &screen || screen.focus() != &list)
        return;
    const auto index = static_cast<int>(list.items().indexOf(words[1]));
    if (index < 0)
        throw Failure{u"expected an item %1 in %2, its items are %3"_s.arg(Quoted(words[1]), list.name(),
                                                                           Quoted(list.items().join(u'|')))};
    player.hands().pick(list, index);
}

void tab(Player& player, Words words) {
    auto& strip = need<TabStrip>(player.reach(words[0]), "a tab strip");
    const auto page = static_cast<int>(strip.captions().indexOf(words[1]));
    if (page < 0)
        throw Failure{u"expected a tab %1 in %2, its tabs are %3"_s.arg(Quoted(words[1]), strip.name(),
                                                                        Quoted(strip.captions().join(u'|')))};
    player.hands().chooseTab(strip, page);
}

void close(Player& player, Words) {
    player.hands().close(player.activeScreen());
}

void frame(Player& player, Words) {
    player.hands().closeByFrame(player.activeScreen());
}

void move(Player& player, Words words) {
    player.hands().move(player.activeScreen(), NumberWord(words[0]), NumberWord(words[1]));
}

struct AnswerName {
    const char* name;
    std::optional<Answer> answer; ///< none for a press of Escape
};

constexpr std::array answerNames{
    AnswerName{"Sim", Answer::Yes}, AnswerName{"Não", Answer::No},      AnswerName{"Cancela", Answer::Cancel},
    AnswerName{"OK", Answer::OK},   AnswerName{"Escape", std::nullopt},
};

void answer(Player& player, Words words) {
    const auto found = std::find_if(answerNames.begin(), answerNames.end(),
                                    [&](const AnswerName& row) { return words[0] == QString::fromUtf8(row.name); });
    if (found == answerNames.end())
        throw Failure{u"expected the answer Sim, Não, Cancela, OK or Escape, was %1"_s.arg(words[0])};
    player.answers().push_back({found->answer, player.line()});
}

void forget(Player& player, Words) {
    player.journal() = {};
}

void expect(Player& player, Words words) {
    RunExpectation(player, words);
}

/// The row of a command; a failure for an unknown one and for too few or too many words.
const CommandRow& rowOf(const QStringList& words);

/// A command for one engine, where the engines differ. On the others it must be a command all the same.
void only(Player& player, Words words) {
    const std::optional<data::Engine> engine = data::EngineNamed(words[0]);
    if (!engine)
        throw Failure{u"expected the engine %1, was %2"_s.arg(data::EngineNames(u" or "_s), words[0])};
    const QStringList command = words.mid(1);
    rowOf(command);
    if (*engine == player.stage().engine())
        RunCommand(player, command);
}

/// A command again and again, as long as the program runs.
void times(Player& player, Words words) {
    const QStringList command = words.mid(1);
    rowOf(command);
    for (int left = NumberWord(words[0]); left > 0 && player.isRunning(); --left)
        RunCommand(player, command);
}

constexpr std::array commands{
    CommandRow{"today", 1, 2, "today yyyy-mm-dd [hh:mm]", Phase::Any, today},
    CommandRow{"sql", 1, 1, "sql \"statement\"", Phase::Any, sql},
    CommandRow{"sqlcep", 1, 1, "sqlcep \"statement\"", Phase::Any, sqlcep},
    CommandRow{"file", 2, 2, "file PATH \"text\"", Phase::Any, file},
    CommandRow{"nofile", 1, 1, "nofile PATH", Phase::Any, nofile},
    CommandRow{"launch", 1, 1, "launch \"string\"", Phase::Any, launch},
    CommandRow{"context", 2, 2, "context NAME \"text\"", Phase::Any, context},
    CommandRow{"open", 1, 1, "open SCREEN", Phase::Running, open},
    CommandRow{"set", 2, 2, "set FIELD \"text\"", Phase::Running, set},
    CommandRow{"focus", 1, 1, "focus FIELD", Phase::Running, focus},
    CommandRow{"leave", 0, 0, "leave", Phase::Running, leave},
    CommandRow{"type", 2, 2, "type FIELD \"text\"", Phase::Running, type},
    CommandRow{"press", 1, 1, "press KEY", Phase::Running, press},
    CommandRow{"hold", 2, 2, "hold KEY TIMES", Phase::Running, hold},
    CommandRow{"paste", 1, 2, "paste \"text\" [keys|menu|drop]", Phase::Running, paste},
    CommandRow{"click", 1, 3, "click FIELD [ROW [COL]]", Phase::Running, click},
    CommandRow{"dblclick", 1, 3, "dblclick GRID ROW [COL]", Phase::Running, dblclick},
    CommandRow{"menu", 2, 3, "menu GRID \"item\" [ROW]", Phase::Running, menu},
    CommandRow{"savein", 1, 1, "savein PATH", Phase::Any, savein},
    CommandRow{"endprogram", 0, 0, "endprogram", Phase::Running, endprogram},
    CommandRow{"drop", 1, 1, "drop LIST", Phase::Running, drop},
    CommandRow{"choose", 2, 2, "choose LIST \"item\"", Phase::Running, choose},
    CommandRow{"tab", 2, 2, "tab STRIP \"caption\"", Phase::Running, tab},
    CommandRow{"close", 0, 0, "close", Phase::Running, close},
    CommandRow{"frame", 0, 0, "frame", Phase::Running, frame},
    CommandRow{"move", 2, 2, "move X Y", Phase::Running, move},
    CommandRow{"answer", 1, 1, "answer \"Sim\"", Phase::Any, answer},
    CommandRow{"forget", 0, 0, "forget", Phase::Any, forget},
    CommandRow{"expect", 1, 99, "expect ...", Phase::Any, expect},
    CommandRow{"only", 2, 99, "only ENGINE COMMAND", Phase::Any, only},
    CommandRow{"times", 2, 99, "times N COMMAND", Phase::Running, times},
};

const CommandRow& rowOf(const QStringList& words) {
    const auto found = std::find_if(commands.begin(), commands.end(),
                                    [&](const CommandRow& row) { return words[0] == QLatin1StringView(row.name); });
    if (found == commands.end())
        throw Failure{u"expected a command, was the unknown word %1"_s.arg(words[0])};
    if (words.size() <= found->least || words.size() > found->most + 1)
        throw Failure{
            u"expected %1, there were %2 words"_s.arg(QLatin1StringView(found->usage), QString::number(words.size()))};
    return *found;
}

} // namespace

int NumberWord(const QString& word) {
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    if (!isNumber)
        throw Failure{u"expected a number, was %1"_s.arg(word)};
    return number;
}

void RunCommand(Player& player, const QStringList& words) {
    if (words[0] == brokenLine)
        throw Failure{u"expected a command, %1"_s.arg(words[1])};
    const CommandRow& row = rowOf(words);
    if (row.phase == Phase::Running)
        player.activeScreen();
    row.run(player, words.mid(1));
}

} // namespace vorta::robot
