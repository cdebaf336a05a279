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
    // The files keep their rights, the folders have got those of this process.
    for (const auto& entry : std::filesystem::recursive_directory_iterator(first.home().toStdString()))
        if (entry.is_directory())
            std::filesystem::permissions(second.home().toStdString() /
                                             std::filesystem::relative(entry.path(), first.home().toStdString()),
                                         entry.status().permissions());
    kit::Relocate(second.home());
    return second;
}

void Installed::ruinProduction() const {
    constexpr qint64 pageBytes = 16384, at = 432;
    constexpr char indexPage = 7;
    QFile file(production());
    if (!file.open(QIODevice::ReadWrite))
        throw std::runtime_error("the test cannot write the base");
    for (qint64 page = 0; page < file.size(); page += pageBytes) {
        char kind = 0;
        if (file.seek(page) && file.getChar(&kind) && kind == indexPage && file.seek(page + at))
            file.write(QByteArray(512, '\xFB'));
    }
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
