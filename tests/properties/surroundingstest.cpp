#include "propertyview.h"
#include "testsupport.h"

namespace
{
/// A dialog with a page: a text and a size policy.
struct sDialog
{
    sDialog()
    {
        auto* pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        auto* pLayout = new QVBoxLayout(&dialog);
        pLayout->addWidget(view);
        pLayout->addWidget(pButtons);
        QObject::connect(pButtons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
        QObject::connect(pButtons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
        CPropertyGroup group = view->Page().AddGroup(QString());
        text = group.Add("text", strText);
        policy = group.Add("policy", sizes);
        fixed = group.Add("fixed", [] { return 1; });
        dialog.setModal(true);
    }

    bool Open()
    {
        const bool bShown = TestSupport::ShowWindow(&dialog);
        view->setFocus();
        return bShown;
    }

    QWidget* Focus() const { return QApplication::focusWidget(); }
    QWidget* Area() const { return view->focusProxy(); }

    void Press(const CPropertyRow& in_row) const
    {
        QTest::mouseClick(view->window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          view->mapTo(view->window(), view->ValueRect(in_row).center()));
    }

    QString strText = "v";
    QSizePolicy sizes;
    QDialog dialog;
    CPropertyView* view = new CPropertyView;
    CPropertyRow text;
    CPropertyRow policy;
    CPropertyRow fixed;
};

class CPaints : public QObject
{
public:
    explicit CPaints(QWidget& io_widget) { io_widget.installEventFilter(this); }

    bool eventFilter(QObject*, QEvent* in_pEvent) override
    {
        m_iCount += in_pEvent->type() == QEvent::Paint;
        return false;
    }

    int m_iCount = 0;
};
} // namespace

/// The page among what applications put it into.
class CSurroundingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { TestSupport::FailOnWarnings(); }

    /// The dialog has the keys that no edit wants.
    void KeysInDialog()
    {
        const struct
        {
            const char* m_strTyped; ///< on the text; "-": there is nothing to work
            Qt::Key m_eKey;
            const char* m_strText;
            bool m_bClosed;
        } cases[] = {{"", Qt::Key_Escape, "v", true},
                     {"x", Qt::Key_Escape, "v", false},
                     {"", Qt::Key_Return, "v", false},
                     {"x", Qt::Key_Return, "x", false},
                     {"-", Qt::Key_Return, "v", true}};
        for (const auto& row : cases)
        {
            const bool bNothing = row.m_strTyped[0] == '-';
            sDialog page;
            QVERIFY(page.Open());
            bNothing ? page.view->Page().Clear() : page.view->SetCurrentRow(page.text);
            QTest::keyClicks(page.Area(), bNothing ? "" : row.m_strTyped);
            QTest::keyClick(page.Focus(), row.m_eKey);
            QCOMPARE(page.strText, QString(row.m_strText));
            QVERIFY2(page.dialog.isVisible() != row.m_bClosed, row.m_strTyped);
        }
    }

    /// Pressed and typed into wherever it stands, and of a size that shows some rows.
    void Within()
    {
        sDialog page;
        QMainWindow window;
        auto* pDock = new QDockWidget;
        auto* pScroll = new QScrollArea;
        window.setCentralWidget(pScroll);
        window.addDockWidget(Qt::LeftDockWidgetArea, pDock);
        QVERIFY(page.view->sizeHint().expandedTo(QSize(150, 150)) == page.view->sizeHint());
        QVERIFY(page.view->sizeHint().boundedTo(QSize(500, 500)) == page.view->sizeHint());
        for (int iPlace = 0; iPlace < 3; ++iPlace)
        {
            iPlace == 0 ? pDock->setWidget(page.view) : void();
            pDock->setFloating(iPlace == 1);
            iPlace == 2 ? pScroll->setWidget(page.view) : void();
            window.show();
            page.view->show();
            QVERIFY(TestSupport::ShowWindow(page.view->window()));
            page.Press(page.text);
            QTest::keyClicks(page.Focus(), "in");
            QVERIFY(page.view->isAncestorOf(page.Focus()));
            pScroll->verticalScrollBar()->setValue(5); // the editor goes with its row
            const QRect editor(page.Focus()->mapTo(page.view, QPoint()), page.Focus()->size());
            QVERIFY(page.view->ValueRect(page.text).contains(editor.center()));
            QTest::keyClick(page.Focus(), Qt::Key_Return);
            QCOMPARE(std::exchange(page.strText, "v"), QString("in"));
        }
    }

    void Disabled()
    {
        sDialog page;
        page.view->setEnabled(false);
        QVERIFY(page.Open());
        page.Press(page.text);
        page.view->SetCurrentRow(page.text);
        QTest::keyClicks(page.Area(), "x");
        QVERIFY(!page.view->isAncestorOf(page.Focus()) && page.strText == "v");
    }

    void StyleSheet()
    {
        sDialog page;
        QVERIFY(page.Open());
        const int iHeight = page.view->ValueRect(page.text).height();
        page.dialog.setStyleSheet("CPropertyView, CPropertyView * { font-size: 40px; color: #f00; background: #0f0 }");
        QTRY_VERIFY(page.view->ValueRect(page.text).height() >= iHeight + 20);
        page.view->SetCurrentRow(CPropertyRow());
        const QImage image = page.view->grab(page.view->ValueRect(page.text)).toImage();
        QCOMPARE(image.pixelColor(image.width() - 9, 3), QColor(Qt::green));
        page.Press(page.text);
        QCOMPARE(page.Focus()->font().pixelSize(), 40);
        QCOMPARE(page.Focus()->palette().color(QPalette::Text), QColor(Qt::red));
    }

    /// An input method composes on a row as in its editor.
    void Composed()
    {
        sDialog page;
        QVERIFY(page.Open());
        page.view->SetCurrentRow(page.text);
        for (const QString& strStage : {QString("editor opens"), QString("editor is open")})
        {
            QInputMethodQueryEvent query(Qt::ImEnabled);
            QCoreApplication::sendEvent(page.Focus(), &query);
            QVERIFY(query.value(Qt::ImEnabled).toBool());
            QInputMethodEvent preedit("ni", {});
            QCoreApplication::sendEvent(page.Focus(), &preedit);
            QVERIFY2(page.Focus() != page.Area() && page.strText == "v", qPrintable(strStage));
            QInputMethodEvent commit;
            commit.setCommitString(QString(QChar(0x4f60)));
            QCoreApplication::sendEvent(page.Focus(), &commit);
        }
        QTest::keyClick(page.Focus(), Qt::Key_Return);
        QCOMPARE(page.strText, QString(2, QChar(0x4f60)));
    }

    /// A part that is a list opens it, like a row that is one.
    void ListAmongParts()
    {
        sDialog page;
        QVERIFY(page.Open());
        page.view->SetCurrentRow(page.policy);
        QTest::keyClick(page.Focus(), Qt::Key_Space);
        QVERIFY(TestSupport::WaitUntil([] { return QApplication::activePopupWidget(); }));
        QApplication::activePopupWidget()->close();
    }

    /// However many signals come, there is one repaint, and it shows the last value.
    void ManyChanges()
    {
        QSlider slider;
        slider.setMaximum(1000);
        CPropertyView view;
        view.ShowObject(&slider);
        view.resize(300, 900);
        QVERIFY(TestSupport::ShowWindow(&view));
        const QRect value = view.ValueRect(view.Page().Row("value"));
        const QImage before = view.grab(value).toImage();
        QCoreApplication::processEvents();
        CPaints paints(*view.focusProxy());
        for (int i = 1; i <= 1000; ++i)
        {
            slider.setValue(i);
        }
        QTRY_VERIFY(paints.m_iCount > 0);
        QCoreApplication::processEvents();
        QCOMPARE(paints.m_iCount, 1);
        QVERIFY(view.grab(value).toImage() != before);
    }
};

INSPECTOR_TEST_MAIN(CSurroundingsTest)
#include "surroundingstest.moc"
