#include "robot/Scenario.h"

#include "base/Literals.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

namespace vorta::robot {

namespace {

bool isBlank(QChar character) {
    return character == u' ' || character == u'\t';
}

QChar unescaped(QChar escape) {
    switch (escape.unicode()) {
    case u'n':
        return u'\n';
    case u'r':
        return u'\r';
    case u't':
        return u'\t';
    case u'"':
    case u'\\':
    case u'|': // as the divider of columns is written in tables of documentation
        return escape;
    default:
        throw Failure{u"unknown escape \\%1"_s.arg(escape)};
    }
}

/// How often a text stands there: "*" and a number behind its closing quote, else once. `at` moves behind it.
int repetitions(const QString& line, qsizetype& at) {
    if (at >= line.size() || line[at] != u'*')
        return 1;
    const qsizetype start = ++at;
    while (at < line.size() && line[at].isDigit())
        ++at;
    return line.sliced(start, at - start).toInt();
}

/// The text from its opening quote at `at`, which moves behind the closing one.
QString quoted(const QString& line, qsizetype& at) {
    QString text;
    for (++at; at < line.size(); ++at) {
        if (line[at] == u'"') {
            ++at;
            const int times = repetitions(line, at);
            if (at < line.size() && !isBlank(line[at]))
                throw Failure{u"a blank is missing behind the text \"%1\""_s.arg(text)};
            return text.repeated(times);
        }
        if (line[at] == u'\\' && at + 1 < line.size())
            text += unescaped(line[++at]);
        else
            text += line[at];
    }
    throw Failure{u"the text \"%1 has no closing quote"_s.arg(text)};
}

QString bare(const QString& line, qsizetype& at) {
    const qsizetype start = at;
    while (at < line.size() && !isBlank(line[at]))
        ++at;
    const QString word = line.sliced(start, at - start);
    if (word.size() > 1 && word.contains(u'"'))
        throw Failure{u"a quote in the middle of the word %1"_s.arg(word)};
    return word;
}

} // namespace

QStringList SplitWords(const QString& line) {
    QStringList words;
    qsizetype at = 0;
    for (;;) {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        if (at >= line.size() || (words.isEmpty() && line[at] == u'#'))
            return words;
        words += line[at] == u'"' ? quoted(line, at) : bare(line, at);
    }
}

Scenario Scenario::parse(const QString& file, const QString& text) {
    Scenario scenario{file, {}};
    int number = 0;
    for (QString line : text.split(u'\n')) {
        ++number;
        if (line.endsWith(u'\r'))
            line.chop(1);
        try {
            if (const QStringList words = SplitWords(line); !words.isEmpty())
                scenario.commands.push_back({number, words});
        } catch (const Failure& failure) {
            scenario.commands.push_back({number, {brokenLine, failure.message}});
        }
    }
    return scenario;
}

Scenario Scenario::read(const QString& file) {
    QFile source(file);
    if (!QFileInfo(file).isFile() || !source.open(QIODevice::ReadOnly))
        throw Failure{u"%1 cannot be read"_s.arg(file)};
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8.decode(source.readAll());
    if (utf8.hasError())
        throw Failure{u"%1 is no UTF-8 text"_s.arg(file)};
    return parse(file, text);
}

} // namespace vorta::robot
