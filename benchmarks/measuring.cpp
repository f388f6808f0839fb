#include "measuring.h"

#include "stage.h"

#include <algorithm>
#include <ctime>
#include <iterator>
#include <thread>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace
{
/// Threads that Qt painted with go to sleep meanwhile: what they still do is no part of the next step.
const std::chrono::milliseconds g_rest(1);

struct sSubject
{
    const char* strName;
    tCreateSubject pCreate;
};

/// What is measured: a step, the time of which counts until the event loop is idle, and what goes before it.
struct sCase
{
    const char* strName;
    int iSteps; ///< how often a repetition takes the step, of which it counts the mean
    bool (CStage::*pApplies)();
    void (CStage::*pPrepare)();
    void (CStage::*pStep)();
};

const sSubject g_subjects[] = {
    {"inspector", &CreateInspectorSubject}, {"properties", &CreatePropertySubject}, {"form", &CreateFormSubject},
    {"tree", &CreateTreeSubject},           {"bare", &CreateBareSubject},
};

const sCase g_cases[] = {
    {"build", 1, &CStage::CanAlways, &CStage::Clear, &CStage::Build},
    {"resize", 4, &CStage::CanAlways, &CStage::Nothing, &CStage::ResizeStep},
    {"scroll", 4, &CStage::CanScroll, &CStage::Nothing, &CStage::ScrollPage},
    {"update all", 2, &CStage::CanAlways, &CStage::ChangeAll, &CStage::UpdateAll},
    {"update one", 4, &CStage::CanAlways, &CStage::ChangeOne, &CStage::UpdateOne},
    {"wheel", 4, &CStage::CanScroll, &CStage::Nothing, &CStage::WheelStep},
    {"mouse move", 4, &CStage::CanAlways, &CStage::Nothing, &CStage::MoveMouse},
    {"open line", 2, &CStage::CanOpenLine, &CStage::EndEditing, &CStage::PressLine},
    {"open list", 2, &CStage::CanOpenList, &CStage::EndEditing, &CStage::PressList},
    {"filter", 2, &CStage::CanFilter, &CStage::BeginFilter, &CStage::NarrowFilter},
    {"begin filter", 2, &CStage::CanFilter, &CStage::EndFilter, &CStage::BeginFilter},
    {"end filter", 1, &CStage::CanFilter, &CStage::BeginFilter, &CStage::EndFilter},
    {"switch", 1, &CStage::CanAlways, &CStage::EndEditing, &CStage::Replace},
    {"destroy", 1, &CStage::CanAlways, &CStage::Nothing, &CStage::Clear},
};

/// Processor time, which unlike the clock on the wall leaves out what others do on the machine.
double Microseconds()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
}

double HeapBytes()
{
#if defined(__GLIBC__) && (__GLIBC__ > 2 || __GLIBC_MINOR__ >= 33)
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
#else
    return 0;
#endif
}

/// An empty name chooses everything.
bool IsChosen(const std::string& in_strWanted, const char* in_strName)
{
    return in_strWanted.empty() || in_strWanted == in_strName;
}

template <class Named, std::size_t uCount>
const Named* Find(const Named (&in_table)[uCount], const std::string& in_strName)
{
    const auto it = std::find_if(std::begin(in_table), std::end(in_table),
                                 [&in_strName](const Named& in_entry) { return in_strName == in_entry.strName; });
    return it == std::end(in_table) ? nullptr : it;
}

double RunSteps(CStage& in_stage, const sCase& in_case)
{
    double total = 0;
    for (int i = 0; i < in_case.iSteps; ++i)
    {
        (in_stage.*in_case.pPrepare)();
        CStage::Settle();
        std::this_thread::sleep_for(g_rest);
        const double start = Microseconds();
        (in_stage.*in_case.pStep)();
        CStage::Settle();
        total += Microseconds() - start;
    }
    return total / in_case.iSteps;
}

/// All cases on one page. The first builds it, the last destroys it.
void RunRepetition(const sPlan& in_plan, const sSubject& in_subject, int in_iRows, tSizeResults& io_results)
{
    const double heapBefore = HeapBytes();
    CStage stage(in_subject.pCreate, in_iRows);
    const double heapOfStage = HeapBytes() - heapBefore;
    for (const sCase& step : g_cases)
    {
        const bool bBuilds = &step == g_cases;
        if ((bBuilds || IsChosen(in_plan.strCase, step.strName)) && (stage.*step.pApplies)())
        {
            io_results[step.strName][in_subject.strName].push_back(RunSteps(stage, step));
        }
        if (bBuilds)
        {
            const double heap = (HeapBytes() - heapBefore - heapOfStage) / in_iRows;
            io_results[Measuring::g_strHeap][in_subject.strName].push_back(heap);
        }
    }
}
} // namespace

const char* const Measuring::g_strHeap = "heap";
const char* const Measuring::g_strReference = "form";

std::vector<std::string> Measuring::SubjectNames()
{
    std::vector<std::string> names;
    for (const sSubject& subject : g_subjects)
    {
        names.push_back(subject.strName);
    }
    return names;
}

std::vector<std::string> Measuring::CaseNames()
{
    std::vector<std::string> names;
    for (const sCase& step : g_cases)
    {
        names.push_back(step.strName);
    }
    names.push_back(g_strHeap);
    return names;
}

tResults Measuring::Run(const sPlan& in_plan)
{
    tResults results;
    for (int iRows : in_plan.sizes)
    {
        for (int i = 0; i < in_plan.iRepetitions; ++i)
        {
            for (const sSubject& subject : g_subjects)
            {
                if (IsChosen(in_plan.strSubject, subject.strName))
                {
                    RunRepetition(in_plan, subject, iRows, results[iRows]);
                }
            }
        }
    }
    return results;
}

/// A function of its own, by whose name a profiler is told what to count.
extern "C" __attribute__((noinline)) void MeasuredStep(CStage* in_pStage, const sCase* in_pCase)
{
    (in_pStage->*in_pCase->pStep)();
    CStage::Settle();
}

bool Measuring::RunOnce(const sPlan& in_plan)
{
    const sSubject* pSubject = Find(g_subjects, in_plan.strSubject);
    const sCase* pCase = Find(g_cases, in_plan.strCase);
    if (!pSubject || !pCase)
    {
        return false;
    }
    CStage stage(pSubject->pCreate, in_plan.sizes.front());
    stage.Build();
    CStage::Settle();
    if (!(stage.*pCase->pApplies)())
    {
        return false;
    }
    RunSteps(stage, *pCase); // what is done only the first time is no matter of the case
    stage.BuildIfEmpty();
    (stage.*pCase->pPrepare)();
    CStage::Settle();
    MeasuredStep(&stage, pCase);
    return true;
}
