#include "fileeditor.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QFileDialog>
#include <QFileSystemModel>

namespace
{
/// Where what is typed is, relative to the folder that the program runs in unless it is absolute.
QString FolderOf(const QString& in_strTyped)
{
    return QDir::cleanPath(QDir::current().absoluteFilePath(QFileInfo(in_strTyped).path()));
}

/// Completes relative paths too, as such.
class CPathCompleter final : public QCompleter
{
public:
    using QCompleter::QCompleter;

    QStringList splitPath(const QString& in_strTyped) const override
    {
        const QString strFolder = FolderOf(in_strTyped);
        const QString strSeparator = strFolder.endsWith(QLatin1Char('/')) ? QString() : QStringLiteral("/");
        return QCompleter::splitPath(strFolder + strSeparator + QFileInfo(in_strTyped).fileName());
    }

    QString pathFromIndex(const QModelIndex& in_index) const override
    {
        const QString strTyped = completionPrefix();
        const QString strFolder = strTyped.left(strTyped.lastIndexOf(QLatin1Char('/')) + 1);
        return QDir::isAbsolutePath(strTyped) ? QCompleter::pathFromIndex(in_index)
                                              : strFolder + in_index.data().toString();
    }
};
} // namespace

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
        QCompleter* pCompleter = new CPathCompleter(this);
        m_pFiles = new QFileSystemModel(pCompleter);
        const bool bFolder = Format().editor == sPropertyFormat::eFolder;
        m_pFiles->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot | (bFolder ? QDir::Dirs : QDir::Files));
        pCompleter->setModel(m_pFiles);
        setCompleter(pCompleter);
        connect(m_pFiles, &QFileSystemModel::directoryLoaded, this, &CFileEditor::Complete);
    }
    const QString strFolder = FolderOf(in_strText);
    if (!in_strText.isEmpty() && QFileInfo(strFolder).isDir())
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
