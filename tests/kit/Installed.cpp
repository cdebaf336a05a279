#include "kit/Installed.h"

#include "kit/Relocate.h"

#include <QFile>
#include <filesystem>
#include <stdexcept>

namespace vorta::test {

Installed::Installed(Copied) : folder_(std::make_unique<QTemporaryDir>()) {}

Installed::Installed(const kit::Contents& contents) : Installed(Copied{}) {
    kit::CreateInstallation(home(), contents);
}

Installed Installed::copyOf(const Installed& first) {
    Installed second{Copied{}};
    std::filesystem::copy(first.home().toStdString(), second.home().toStdString(),
                          std::filesystem::copy_options::recursive);
    kit::Relocate(second.home());
    return second;
}

void Installed::write(const QString& relative, const QByteArray& content) const {
    QFile file(home() + u'/' + relative);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        throw std::runtime_error("the test cannot write " + file.fileName().toStdString());
}

const Installed& Installed::plain() {
    static const Installed one;
    return one;
}

const Installed& Installed::demonstration() {
    static const Installed one([] {
        kit::Contents contents;
        contents.demo = true;
        return contents;
    }());
    return one;
}

} // namespace vorta::test
