/// The floor: one bare widget per row that only paints its value, placed by hand. The labels are painted by the page.
/// Nothing can be edited, and what the page shows is measured once.
/// \file

#include "subject.h"

#include <QCoreApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QStaticText>
#include <QWheelEvent>

namespace
{
enum
{
    eMargin = 10,
    eLabelWidth = 100,
    eRowHeight = 20,
    eStep = 25, ///< from row to row
    eTitleHeight = 24,
    eGroupHeight = eTitleHeight + CProperties::eGroupSize * eStep + eMargin,
};

/// One row's control: a field, a box with a cross, or a text.
class CBareControl : public QWidget
{
public:
    CBareControl(QWidget* in_pPage, const CProperties::sProperty& in_property) : QWidget(in_pPage)
    {
        Load(in_property);
        show();
    }

    void Load(const CProperties::sProperty& in_property)
    {
        m_bCross = in_property.kind == CProperties::eFlag && in_property.flag;
        m_strText = in_property.kind == CProperties::eFlag ? QString() : CProperties::Shown(in_property.text);
    }

protected:
    /// The late update that Qt posts to every shown widget is left to the page, whose own covers all: every widget that
    /// is updated by itself looks at all its siblings.
    bool event(QEvent* in_pEvent) override
    {
        return in_pEvent->type() == QEvent::UpdateLater || QWidget::event(in_pEvent);
    }

    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), palette().base());
        painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, m_strText);
        if (m_bCross)
        {
            painter.drawLine(7, 7, 13, 13);
            painter.drawLine(7, 13, 13, 7);
        }
    }

private:
    QString m_strText;
    bool m_bCross = false;
};

class CBarePage : public QWidget
{
public:
    CBarePage(QWidget* in_pView, const CProperties& in_properties) : QWidget(in_pView)
    {
        for (int i = 0; i < in_properties.Count(); ++i)
        {
            m_controls.push_back(new CBareControl(this, in_properties[i]));
            m_labels.push_back(QStaticText(CProperties::Shown(in_properties[i].label)));
        }
    }

    void Place(int in_iWidth, int in_iHeight, int in_iOffset)
    {
        m_iOffset = in_iOffset;
        resize(in_iWidth, in_iHeight);
        for (int i = 0; i < static_cast<int>(m_controls.size()); ++i)
        {
            const int iX = eMargin + eLabelWidth;
            Control(i)->setGeometry(iX, Top(i) - in_iOffset, in_iWidth - iX - eMargin, eRowHeight);
        }
        update();
    }

    static int Top(int in_iRow)
    {
        const int iGroup = in_iRow / CProperties::eGroupSize;
        return iGroup * eGroupHeight + eTitleHeight + in_iRow % CProperties::eGroupSize * eStep;
    }

    CBareControl* Control(int in_iRow) const { return m_controls[static_cast<std::size_t>(in_iRow)]; }

protected:
    void wheelEvent(QWheelEvent* in_pEvent) override
    {
        QCoreApplication::sendEvent(parentWidget()->findChild<QScrollBar*>(), in_pEvent);
    }

    void paintEvent(QPaintEvent* in_pEvent) override
    {
        QPainter painter(this);
        const QRect touched = in_pEvent->rect().translated(0, m_iOffset);
        const int iGroups = static_cast<int>(m_controls.size()) / CProperties::eGroupSize;
        const int iLast = qMin(touched.bottom() / eGroupHeight, iGroups - 1);
        for (int iGroup = touched.top() / eGroupHeight; iGroup <= iLast; ++iGroup)
        {
            PaintGroup(painter, iGroup * CProperties::eGroupSize, touched);
        }
    }

private:
    void PaintGroup(QPainter& in_painter, int in_iFirst, const QRect& in_touched)
    {
        const int iTop = Top(in_iFirst) - eTitleHeight - m_iOffset;
        in_painter.drawRoundedRect(5, iTop + 7, width() - 10, eGroupHeight - 12, 3, 3);
        in_painter.drawText(eMargin, iTop + 14, CProperties::Shown(CProperties::GroupTitle(in_iFirst)));
        for (int i = in_iFirst; i < in_iFirst + CProperties::eGroupSize; ++i)
        {
            if (Top(i) <= in_touched.bottom() && Top(i) + eRowHeight > in_touched.top())
            {
                in_painter.drawStaticText(eMargin, Top(i) - m_iOffset, m_labels[static_cast<std::size_t>(i)]);
            }
        }
    }

    std::vector<CBareControl*> m_controls; ///< by row
    std::vector<QStaticText> m_labels;
    int m_iOffset = 0;
};

class CBareSubject : public ISubject
{
public:
    CBareSubject(QWidget* in_pWindow, const CProperties& in_properties)
        : ISubject(in_properties),
          m_view(in_pWindow),
          m_pBar(new QScrollBar(&m_view))
    {
        QObject::connect(m_pBar, &QScrollBar::valueChanged, &m_view, [this] { Place(); });
    }

    void Resize(const QSize& in_size) override
    {
        m_view.resize(in_size);
        Place();
    }

    /// The page is revealed when every row is in its place.
    void Build() override
    {
        m_pPage.reset(new CBarePage(&m_view, m_properties));
        Place();
        m_pPage->show();
        m_pBar->raise();
    }

    void Clear() override { m_pPage.reset(); }

    void Update(int in_iRow) override
    {
        m_pPage->Control(in_iRow)->Load(m_properties[in_iRow]);
        m_pPage->update(m_pPage->Control(in_iRow)->geometry());
    }

    void UpdateAll() override
    {
        for (int i = 0; i < m_properties.Count(); ++i)
        {
            m_pPage->Control(i)->Load(m_properties[i]);
        }
        m_pPage->update();
    }

    QScrollBar* ScrollBar() override { return m_pBar; }
    QRect Control(int in_iRow) override { return InWindow(m_pPage->Control(in_iRow)); }
    bool OpensOnPress(CProperties::eKind) override { return false; }

private:
    void Place()
    {
        const int iContent = CBarePage::Top(m_properties.Count());
        m_pBar->setGeometry(m_view.width() - eRowHeight, 0, eRowHeight, m_view.height());
        m_pBar->setPageStep(m_view.height());
        m_pBar->setSingleStep(eStep);
        m_pBar->setRange(0, qMax(0, iContent - m_view.height()));
        if (m_pPage)
        {
            m_pPage->Place(m_view.width() - eRowHeight, m_view.height(), m_pBar->value());
        }
    }

    QWidget m_view;
    QScrollBar* m_pBar;
    std::unique_ptr<CBarePage> m_pPage;
};
} // namespace

std::unique_ptr<ISubject> CreateBareSubject(QWidget* in_pWindow, const CProperties& in_properties)
{
    return std::unique_ptr<ISubject>(new CBareSubject(in_pWindow, in_properties));
}
