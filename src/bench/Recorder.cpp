#include "bench/Recorder.h"

#include "base/Literals.h"
#include "data/QualifiedColumns.h"
#include "firebird/Bridge.h"

#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace vorta::bench {

namespace {

QByteArray spoken(const QString& text) {
    static const QRegularExpression day(u"'(\\d{4})(\\d{2})(\\d{2})'"_s);
    data::Statement statement;
    statement += text;
    QString bridged = firebird::BridgeSyntax(data::QualifyRoleKeys(statement)).text();
    return bridged.replace(day, u"'\\1-\\2-\\3'"_s).toUtf8();
}

bool isWrite(const QByteArray& text) {
    return qstrnicmp(text.constData(), "select", 6) != 0;
}

} // namespace

void Recorder::hear(const QString& text) {
    if (listening_)
        heard_ += spoken(text);
}

Recorder::Statements Recorder::record(const std::function<void()>& work) {
    listening_ = true;
    work();
    listening_ = false;
    return std::exchange(heard_, {});
}

void Recorder::repeat(BareClient& bare, const Statements& statements) {
    const auto first = std::find_if(statements.begin(), statements.end(), isWrite);
    const auto last = std::find_if(statements.rbegin(), statements.rend(), isWrite).base();
    for (auto text = statements.begin(); text != statements.end(); ++text) {
        if (text == first)
            bare.begin();
        bare.send(*text);
        if (first != statements.end() && text + 1 == last)
            bare.commit();
    }
}

} // namespace vorta::bench
