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

/// The user does something, or the application does, at once or the next time that it is called.
void Step(CLivePage& io_page, CChoices& io_choices)
{
    const std::vector<sAct>* const kinds[] = {&io_page.m_calls, &io_page.m_opening, &io_page.m_input,
                                              &io_page.m_asides};
    const int iWhen = io_choices.Pick(2 * ePlaces);
    const sAct& act = *io_choices.Any(iWhen < ePlaces ? io_page.m_calls : *kinds[iWhen % 4]);
    const std::function<void()> doIt = [&io_page, &act] {
        act.m_iHarm == 2 ? io_page.Unhook() : void(); // Qt goes on with what a report's event loop would destroy
        io_page.Do(act);
    };
    iWhen < ePlaces ? void(io_page.m_log.m_hooks[iWhen] = doIt) : doIt();
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
        for (CChoices choices(in_pBytes, in_uSize); !choices.IsAtEnd();)
        {
            Step(page, choices);
            page.Settle();
            Require(page.Fault());
        }
        Require(page.NextEdit());
    }
    CLivePage::Settle();
    Require(CQTSimpleDataWidget::g_pInPlace || CQTEnumDataWidget::g_pInPlaceList ? "a shared editor leaked" : "");
    return 0;
}
