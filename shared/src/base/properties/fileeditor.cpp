#include "fileeditor.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFileDialog>
#include <QFileSystemModel>

CFileEditor::CFileEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent)
    : CDialogEditor(in_type, in_format, in_pParent)
{
    connect(this, &QLineEdit::textEdited, this, &CFileEditor::Load);
}

/// The model knows the folder that is typed when it has it as its root. It starts a thread: not before somebody types.
void CFileEditor::Load(const QString& in_strText)
{
    if (!m_pFiles)
    {
        QCompleter* pCompleter = new QCompleter(this);
        m_pFiles = new QFileSystemModel(pCompleter);
        const bool bFolder = Format().editor == sPropertyFormat::eFolder;
        m_pFiles->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | (bFolder ? QDir::Dirs : QDir::Files));
        pCompleter->setModel(m_pFiles);
        setCompleter(pCompleter);
        connect(m_pFiles, &QFileSystemModel::directoryLoaded, this, &CFileEditor::Complete);
    }
    const QString strFolder = QFileInfo(in_strText).path();
    if (QDir::isAbsolutePath(in_strText) && QFileInfo(strFolder).isDir())
    {
        m_pFiles->setRootPath(strFolder);
    }
}

/// A folder comes to be known later than it is typed.
void CFileEditor::Complete()
{
    if (hasFocus() && isModified() && !completer()->popup()->isVisible())
    {
        completer()->setCompletionPrefix(text());
        completer()->complete();
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
