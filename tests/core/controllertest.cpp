#include "corefakes.h"

namespace
{
/// View and controller wired, with items a, b and c whose records lie in memory in this order.
struct CItems
{
    CItems()
    {
        controller->m_pView = view.get();
        view->m_pController = controller.get();
        Add("");
        Add("");
        Add("");
        controller->m_items.sort();
        for (sItem* pItem : controller->m_items)
        {
            items.push_back(pItem);
            elements.push_back(static_cast<CFakeElement*>(pItem->element));
            elements.back()->m_strName = std::string(1, static_cast<char>('`' + items.size()));
        }
        journal.Take();
    }

    void Add(const std::string& in_strName)
    {
        CFakeElement* pElement = new CFakeElement(journal, in_strName);
        CFakeWidget* pWidget = new CFakeWidget(journal, "w");
        controller->AddItem(pElement, pWidget, new CFakeData(journal, "d"));
        view->AddElement(pElement, pWidget, in_strName.c_str(), nullptr, nullptr);
    }
    void Remove(std::size_t in_uItem) { controller->RemoveItem(elements[in_uItem]); }
    void Queue(std::size_t in_uItem, const char* in_str)
    {
        controller->DirtifyItem(items[in_uItem], in_str ? new CFakeNotice(journal, in_str) : nullptr);
    }
    void QueueForAll(const char* in_str) { controller->DirtifyController(new CFakeNotice(journal, in_str)); }

    /// Notices for all and for each, with and without a record.
    void QueueSome()
    {
        QueueForAll("0");
        Queue(0, nullptr);
        Queue(1, "2");
        Queue(1, nullptr);
        Queue(1, "3");
        Queue(2, "4");
    }

    sJournal journal;
    std::unique_ptr<CFakeView> view{new CFakeView(journal)};
    std::unique_ptr<CFakeController> controller{new CFakeController(journal)};
    std::vector<sItem*> items;
    std::vector<CFakeElement*> elements;
};

const std::map<std::string, std::function<void(CItems&)>> g_actions = {
    {"nothing", [](CItems&) {}},
    {"remove a", [](CItems& io) { io.Remove(0); }},
    {"remove b", [](CItems& io) { io.Remove(1); }},
    {"remove c", [](CItems& io) { io.Remove(2); }},
    {"clear", [](CItems& io) { io.controller->ClearAllData(); }},
    {"add x", [](CItems& io) { io.Add("x"); }},
    {"add b again",
     [](CItems& io) { io.controller->AddItem(io.elements[1], io.items[1]->widget, nullptr), io.Remove(1); }},
    {"queue for a", [](CItems& io) { io.Queue(0, "5"); }},
    {"queue for b", [](CItems& io) { io.Queue(1, "5"); }},
    {"queue for c", [](CItems& io) { io.Queue(2, "5"); }},
    {"queue for all", [](CItems& io) { io.QueueForAll("5"); }},
    {"queue two by a dying one",
     [](CItems& io) {
         CFakeNotice* pNotice = new CFakeNotice(io.journal, "5");
         pNotice->m_onDestroy = [&io] { io.Queue(0, "6"), io.QueueForAll("7"); };
         io.controller->DirtifyItem(io.items[0], pNotice);
     }},
    {"throw", [](CItems&) { throw 1; }},
    {"handle", [](CItems& io) { io.controller->HandleDirtyItems(); }},
    {"delete view", [](CItems& io) { io.view.reset(); }},
    {"delete controller", [](CItems& io) { io.controller.reset(); }},
};
} // namespace

TEST(Controller, CallbacksThatChangeThePage)
{
    const std::string strAll = "-a ~d ~a ~w -b ~d ~b ~w -c ~d ~c ~w";
    // action, where (handling or destroying which notice, connecting b), what happens from then on
    const std::vector<std::vector<std::string>> cases = {
        {"nothing", "2", "~2 3@b ~3 4@c ~4"},
        {"remove b", "2", "-b ~3 ~d ~b ~w ~2 4@c ~4"},
        {"remove c", "2", "-c ~4 ~d ~c ~w ~2 3@b ~3"},
        {"clear", "2", "~3 ~4 " + strAll + " ~2"},
        {"queue for a", "2", "~2 3@b ~3 4@c ~4 ~5"},
        {"queue for b", "2", "~2 3@b ~3 5@b ~5 4@c ~4"},
        {"queue for c", "2", "~2 3@b ~3 4@c ~4 5@c ~5"},
        {"queue for all", "2", "~2 3@b ~3 4@c ~4 controller1 ~5"},
        {"queue two by a dying one", "2", "~2 3@b ~3 4@c ~4 ~5 ~6 ~7"},
        {"throw", "2", "~2 ~3 ~4 controller1 ~8"},
        {"throw", "controller", "~2 ~3 ~4 ~0 controller1 ~8"},
        {"handle", "2", "~2 3@b ~3 4@c ~4"},
        {"delete view", "2", "~2 3@b ~3 4@c ~4"},
        {"delete controller", "2", "~3 ~4 " + strAll + " ~2"},
        {"queue for a", "null", "2@b ~2 3@b ~3 4@c ~4 ~5"},
        {"clear", "controller", "~2 ~3 ~4 " + strAll + " ~0"},
        {"queue for all", "controller", "~0 ~5 null@a 2@b ~2 3@b ~3 4@c ~4"},
        {"handle", "controller", "~0 null@a 2@b ~2 3@b ~3 4@c ~4"},
        {"delete controller", "controller", "~2 ~3 ~4 " + strAll + " ~0"},
        {"clear", "~0", "~2 ~3 ~4 " + strAll},
        {"nothing", "connect", "init +c init"},
        {"remove a", "connect", "-a ~d ~a ~w init +c init"},
        {"remove b", "connect", "-b ~2 ~3 ~d ~b ~w +c init"},
        {"add x", "connect", "parent show init +c init +x init"},
        {"add b again", "connect", "-b ~2 ~3 ~d ~b ~w +c init"},
        {"clear", "connect", "~2 ~3 ~4 " + strAll + " ~0"},
    };
    for (const std::vector<std::string>& row : cases)
    {
        SCOPED_TRACE(row[0] + " on " + row[1]);
        CItems page;
        page.QueueSome();
        const tAction action = [&page, &row] {
            page.journal.Take();
            g_actions.at(row[0])(page);
        };
        page.elements[1]->m_onConnect = action;
        page.controller->m_onHandle[row[1]] = action;
        static_cast<CFakeNotice*>(page.controller->m_dirtyController[0])->m_onDestroy =
            row[1] == "~0" ? action : nullptr;
        try
        {
            row[1] == "connect" ? page.controller->ConnectDataElements() : page.view->OnPreDraw();
        }
        catch (int)
        {
            page.controller->m_onHandle.clear();
            page.QueueForAll("8");
        }
        row[1] != "connect" && page.controller ? page.controller->HandleDirtyItems() : void();
        EXPECT_EQ(row[2], page.journal.strLog);
    }
}

TEST(Controller, DeathsOnEitherSide)
{
    CItems page;
    CFakeView other(page.journal);
    page.controller->m_pView = &other;
    page.view.reset();
    EXPECT_EQ(&other, page.controller->m_pView);
    other.m_pController = page.controller.get();
    other.OnPreDraw();
    std::unique_ptr<CFakeView> shortLived(new CFakeView(page.journal)); // does not point back, dies in a callback
    page.controller->m_pView = shortLived.get();
    page.elements[0]->m_onDisconnect = [&shortLived] { shortLived.reset(); };
    page.elements[1]->m_onDisconnect = [&page] { page.controller.reset(); };
    static_cast<CFakeData*>(page.items[1]->data)->m_onDestroy = [&page] {
        page.elements[1]->OnEndEditing(nullptr, CInspectorDataElement::eEndEditNext); // to nobody
    };
    page.Remove(1);
    EXPECT_TRUE(!shortLived && !other.m_pController);
}
