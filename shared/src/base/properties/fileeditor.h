#ifndef FILEEDITOR_H
#define FILEEDITOR_H

#include "dialogeditor.h"

/// Edits the name of a file or a folder, which is completed as it is typed.
class CFileEditor final : public CDialogEditor
{
    Q_OBJECT

public:
    CFileEditor(const CPropertyType& in_type, const sPropertyFormat& in_format, QWidget* in_pParent);

private:
    void Complete();
    QDialog* CreateDialog() override;
};

#endif
