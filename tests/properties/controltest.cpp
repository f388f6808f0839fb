#include "propertyview.h"
#include "qtsimpledataelement.h"
#include "qtsimpledatawidget.h"
#include "testsupport.h"

namespace
{
int g_iElements = 0;

class CNameElement : public CSimpleDataElement
{
public:
    explicit CNameElement(std::string& io_strName) : m_strName(io_strName) { ++g_iElements; }
    ~CNameElement() override { --g_iElements; }
    void Connect() override { m_strValue = m_strName; }
    void InternalValueChanged() override { m_strName = m_strValue; }

private:
    std::string& m_strName;
};
} // namespace

class CControlTest : public QObject
{
    Q_OBJECT

private slots:
    /// It is edited in place as in a view of its own, Tab comes to it and goes on, and it dies with the page.
    void AmongRows()
    {
        std::string strName = "a";
        int iBefore = 1;
        int iAfter = 2;
        CPropertyView view;
        CPropertyGroup group = view.Page().AddGroup("Group");
        const CPropertyRow before = group.Add("Before", iBefore);
        const CPropertyRow control = group.AddControl("Name", new CNameElement(strName), new CQTSimpleDataWidget);
        const CPropertyRow after = group.Add("After", iAfter);
        view.resize(300, 200);
        view.show();
        view.activateWindow();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        view.setFocus();
        view.SetCurrentRow(before);
        QTest::keyClick(view.focusProxy(), Qt::Key_Tab);
        QTRY_VERIFY(CQTSimpleDataWidget::g_pInPlace && CQTSimpleDataWidget::g_pInPlace->isVisible());
        QVERIFY(view.CurrentRow() == control);
        QTest::keyClicks(CQTSimpleDataWidget::g_pInPlace, "b");
        QTest::keyClick(CQTSimpleDataWidget::g_pInPlace, Qt::Key_Tab);
        QTRY_VERIFY(view.CurrentRow() == after);
        QVERIFY(strName.find('b') != std::string::npos);
        QCOMPARE(g_iElements, 1);
        view.Page().Clear();
        QCOMPARE(g_iElements, 0);
    }

    /// A page that is never laid out owns them all the same.
    void NeverShown()
    {
        std::string strName;
        {
            CPropertyView view;
            view.Page().AddGroup("Group").AddControl("Name", new CNameElement(strName), new CQTSimpleDataWidget);
        }
        QCOMPARE(g_iElements, 0);
    }
};

QTEST_MAIN(CControlTest)
#include "controltest.moc"
