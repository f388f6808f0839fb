#ifndef SLIDER_H
#define SLIDER_H

#include "inspectordataelement.h"

#include <QSlider>

/// A number between two limits. Needs no Qt: it could be shown by another toolkit's slider as well.
class CSliderElement : public CInspectorDataElement
{
public:
    CSliderElement(int& io_iModel, int in_iMinimum, int in_iMaximum);

    const char* GetType() override; ///< "example.slider.data"
    void Connect() override;

    /// The user moved the slider.
    void TakeOver(int in_iValue);

    int GetValue() const { return m_iValue; }
    int GetMinimum() const { return m_iMinimum; }
    int GetMaximum() const { return m_iMaximum; }

    void InternalValueChanged() override;

private:
    int& m_iModel;
    int m_iValue = 0;
    int m_iMinimum;
    int m_iMaximum;
};

/// A slider as the control of a row. Pair it with a CSliderElement.
class CSliderWidget : public QSlider, public CInspectorDataWidget
{
    Q_OBJECT

public:
    CSliderWidget();

    void InitFromElement() override;
    const char* GetType() override; ///< "example.slider"
    void StartEditing() override;
    void OnValueChange(sValueChangeInfo* in_pInfo) override;
    int GetRequiredWidth() override;
    int GetRequiredHeight(int in_iWidth) override;
    void ResizeWidget(int in_iWidth, int in_iHeight) override;
    void MoveWidget(int in_iX, int in_iY) override;
    void Show() override;
    void Hide() override;

protected:
    /// Tab goes from row to row as the page is laid out.
    bool focusNextPrevChild(bool in_bNext) override;

private slots:
    void OnMoved(int in_iValue);

private:
    CSliderElement* GetSafeData();
};

#endif
