#include "fileeditor.h"

#include <QCompleter>
#include <QFileDialog>
#include <QFileSystemModel>

CFileEditor::CFileEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent)
    : CDialogEditor(in_type, in_format, in_pParent)
{
    // A model of files starts a thread: not before somebody types.
    connect(this, &QLineEdit::textEdited, this, &CFileEditor::Complete);
}

void CFileEditor::Complete()
{
    if (!completer())
    {
        QCompleter* pCompleter = new QCompleter(this);
        QFileSystemModel* pFiles = new QFileSystemModel(pCompleter);
        const bool bFolder = Format().editor == sPropertyFormat::eFolder;
        pFiles->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | QDir::Drives | (bFolder ? QDir::Dirs : QDir::Files));
        pFiles->setRootPath(QString());
        pCompleter->setModel(pFiles);
        setCompleter(pCompleter);
    }
}

QDialog* CFileEditor::CreateDialog()
{
    const bool bFolder = Format().editor == sPropertyFormat::eFolder;
    QFileDialog* pDialog = new QFileDialog(this, bFolder ? tr("Choose a folder") : tr("Choose a file"));
    pDialog->setFileMode(bFolder ? QFileDialog::Directory : QFileDialog::AnyFile);
    pDialog->setOption(QFileDialog::ShowDirsOnly, bFolder);
    pDialog->selectFile(Value().toString());
    connect(pDialog, &QFileDialog::fileSelected, this, [this](const QString& in_strName) { SetValue(in_strName); });
    return pDialog;
}
