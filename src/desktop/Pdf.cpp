#include "desktop/Pdf.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/WhyNotWritten.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextDocument>

namespace vorta::desktop {

void WritePdf(const QString& html, const QString& path) {
    QBuffer pages;
    pages.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&pages);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setCreator(u"Cadastro de Pessoas"_s);
        QTextDocument document;
        document.setDefaultFont(QFont(u"sans-serif"_s, 9));
        document.setHtml(html);
        writer.setTitle(document.metaInformation(QTextDocument::DocumentTitle));
        document.print(&writer);
    }
    QSaveFile file(path);
    const bool right = file.open(QIODevice::WriteOnly) && file.write(pages.data()) == pages.size();
    if (!right)
        file.cancelWriting();
    if (!right || !file.commit())
        throw RuntimeError(errorNumber::PathRefused,
                           u"Não foi possível gravar %1: %2"_s.arg(path, WhyNotWritten(path)));
}

} // namespace vorta::desktop
