/// A live page under a user and an application that do anything in any order, the application in callbacks too. Bytes
/// choose what happens.
/// \file

#include "choices.h"
#include "livepage.h"

namespace
{
void Require(const std::string& in_strFault)
{
    in_strFault.empty() ? void() : qFatal("%s", in_strFault.c_str());
}

void Step(CLivePage& io_page, CChoices& io_choices)
{
    const Qt::Key keys[] = {Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backspace, Qt::Key_Down};
    const int iNumber = io_choices.Pick(256);
    const sAct& call = *io_choices.Any(io_page.m_calls);
    switch (io_choices.Pick(8))
    {
    case 0:
        io_page.Do(call);
        break;
    case 1:
        io_page.m_log.m_hooks[iNumber % ePlaces] = [&io_page, &call] { io_page.Do(call); };
        break;
    case 2:
        io_page.Key(keys[iNumber % 5]);
        break;
    case 3:
        io_page.Type();
        break;
    case 4:
        io_page.m_window.setGeometry(iNumber, 50, 340, 200 + iNumber);
        break;
    case 5:
        iNumber % 2 ? io_page.m_window.setVisible(iNumber & 2) : void(TestSupport::TurnWheel(&io_page.m_window));
        break;
    case 6:
        io_page.Do(io_page.m_opening[static_cast<std::size_t>(iNumber) % io_page.m_opening.size()]);
        break;
    default:
        io_page.Do(io_page.m_input[static_cast<std::size_t>(iNumber) % io_page.m_input.size()]);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* in_pBytes, std::size_t in_uSize)
{
    static int iCount = 1;
    static char strName[] = "pagefuzz";
    static char* arguments[] = {strName, nullptr};
    static QApplication* const pApplication = new QApplication(iCount, arguments);
    pApplication->setQuitOnLastWindowClosed(false);
    {
        CLivePage page;
        page.CTestPage::Open(320, 380);
        for (CChoices choices(in_pBytes, in_uSize); !choices.IsAtEnd(); page.Settle())
        {
            Step(page, choices);
            Require(page.Fault());
        }
        Require(page.NextEdit() ? page.Fault() : "no further edit");
    }
    CLivePage::Settle();
    Require(CQTSimpleDataWidget::g_pInPlace || CQTEnumDataWidget::g_pInPlaceList ? "a shared editor leaked" : "");
    return 0;
}
