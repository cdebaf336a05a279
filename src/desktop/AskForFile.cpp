#include "desktop/AskForFile.h"

#include "base/Literals.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace vorta::desktop {

std::unique_ptr<QFileDialog> MakeFileDialog(const QString& suggested, QWidget* parent) {
    const QString suffix = QFileInfo(suggested).suffix();
    auto dialog = std::make_unique<QFileDialog>(parent, u"Salvar"_s,
                                                QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                                                u"%1 (*.%2);;Todos os arquivos (*)"_s.arg(suffix.toUpper(), suffix));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setOption(QFileDialog::DontConfirmOverwrite);
    dialog->setDefaultSuffix(suffix);
    dialog->selectFile(suggested);
    dialog->setLabelText(QFileDialog::LookIn, u"Pasta:"_s);
    dialog->setLabelText(QFileDialog::FileName, u"&Nome do arquivo:"_s);
    dialog->setLabelText(QFileDialog::FileType, u"Tipo:"_s);
    dialog->setLabelText(QFileDialog::Accept, u"&Salvar"_s);
    dialog->setLabelText(QFileDialog::Reject, u"Cancelar"_s);
    return dialog;
}

} // namespace vorta::desktop
