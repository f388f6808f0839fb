#include "propertyadapter.h"
#include "propertyview.h"
#include "testsupport.h"

Q_DECLARE_METATYPE(CPropertyAdapter)

namespace
{
struct sLook
{
    Q_GADGET
    Q_PROPERTY(int width MEMBER iWidth)
    Q_PROPERTY(QString name MEMBER strName)
    Q_PROPERTY(bool spare MEMBER bSpare)

public:
    int iWidth = 3;
    QString strName;
    bool bSpare = false;
};
} // namespace

class CAdapterTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TestSupport::FailOnWarnings(); }

    void Rules_data()
    {
        TestSupport::Columns<CPropertyAdapter, QString>("adapter", "page");
        const auto rule = [](const char* in_strName, const auto& in_say, const char* in_strPage) {
            CPropertyAdapter adapter;
            in_say(adapter);
            QTest::newRow(in_strName) << adapter << in_strPage;
        };
        rule(
            "none", [](CPropertyAdapter&) {},
            "QTimer:singleShot,interval,remainingTime,timerType,active QObject:objectName");
        const QStringList some{"active", "objectName", "nothing"};
        rule(
            "hidden", [&](CPropertyAdapter& io_adapter) { io_adapter.Of<QTimer>().Hide(some); },
            "QTimer:singleShot,interval,remainingTime,timerType");
        rule(
            "only", [&](CPropertyAdapter& io_adapter) { io_adapter.Of<QObject>().Only(some); },
            "QTimer:active QObject:objectName");
        rule(
            "ordered",
            [&](CPropertyAdapter& io_adapter) {
                io_adapter.Of<QTimer>().Order({"active", "timerType"});
            },
            "QTimer:active,timerType,singleShot,interval,remainingTime QObject:objectName");
        rule(
            "regrouped", [&](CPropertyAdapter& io_adapter) { io_adapter.Of<QTimer>().Group("Main", some); },
            "Main:active,objectName QTimer:singleShot,interval,remainingTime,timerType");
        rule(
            "base classes first",
            [&](CPropertyAdapter& io_adapter) {
                io_adapter.Of<QTimer>().Only({"interval"}).Title("Clock", "Timer");
                io_adapter.Of<QObject>().Title("QTimer", "Clock");
            },
            "Timer:interval");
        rule(
            "of another class", [&](CPropertyAdapter& io_adapter) { io_adapter.Of<QWidget>().Hide(some); },
            "QTimer:singleShot,interval,remainingTime,timerType,active QObject:objectName");
        rule(
            "labelled",
            [&](CPropertyAdapter& io_adapter) {
                io_adapter.Of<QTimer>().Only({"interval"}).For("interval", [](CPropertyRow in_row) {
                    in_row.Label("Every").Range(1, 9);
                });
            },
            "QTimer:Every");
    }

    void Rules()
    {
        QFETCH(CPropertyAdapter, adapter);
        QTimer timer;
        CPropertyPage page;
        page.SetAdapter(adapter);
        page.AddObject(&timer);
        QStringList groups;
        for (const QString& strLine : page.Text().split('\n'))
        {
            const QString strLabel = strLine.section('\t', 0, 0);
            strLine.contains('\t') ? void(groups.last() += (groups.last().endsWith(':') ? "" : ",") + strLabel)
                                   : void(groups << strLabel + ':');
        }
        groups.removeLast();
        QTEST(groups.join(' '), "page");
    }

    /// Of several objects the rules of what they have in common; and what a rule says may end the page.
    void SeveralAndDestroyed()
    {
        QTimer timer;
        QPushButton button;
        CPropertyAdapter adapter;
        auto* pPage = new CPropertyPage;
        adapter.Of<QTimer>().Hide({"objectName"});
        adapter.Of<QObject>().For("objectName", [&pPage](CPropertyRow in_row) {
            in_row.Label("Name");
            pPage->objectName().isEmpty() ? void() : delete std::exchange(pPage, nullptr);
        });
        pPage->SetAdapter(adapter);
        pPage->AddObjects({nullptr, &timer, &button, &timer});
        QCOMPARE(pPage->Text(), QString("QObject\nName\t\n"));
        pPage->setObjectName("to go");
        pPage->AddObject(&button);
        QVERIFY(!pPage);
    }

    /// The group that it is added to takes in what the rules put under no title.
    void Gadget()
    {
        sLook look;
        CPropertyAdapter adapter;
        adapter.Of<sLook>().Hide({"spare"}).Group("Size", {"width"}).For("width", [](CPropertyRow in_row) {
            in_row.Suffix(" px");
        });
        CPropertyPage page;
        page.SetAdapter(adapter);
        page.AddGroup("Look").AddGadget(look);
        QCOMPARE(QString(page.Json()).simplified(), QString(R"({ "Look": { "Size": { "width": 3 }, "name": "" } })"));
        QCOMPARE(page.Row("width").Property()->Format().suffix, QString(" px"));
    }
};

INSPECTOR_TEST_MAIN(CAdapterTest)
#include "adaptertest.moc"
