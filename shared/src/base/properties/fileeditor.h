#ifndef FILEEDITOR_H
#define FILEEDITOR_H

#include "dialogeditor.h"

class QFileSystemModel;

/// Edits the name of a file or a folder, which is completed as it is typed.
class CFileEditor final : public CDialogEditor
{
    Q_OBJECT

public:
    CFileEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent);

private:
    void Load(const QString& in_strText);
    void Complete();
    QDialog* CreateDialog() override;

    QFileSystemModel* m_pFiles = nullptr;
};

#endif
