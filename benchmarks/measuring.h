#ifndef MEASURING_H
#define MEASURING_H

#include <map>
#include <string>
#include <vector>

/// What to measure; an empty name stands for all.
struct sPlan
{
    std::vector<int> sizes; ///< rows of a page
    int iRepetitions = 15;
    std::string strCase;
    std::string strSubject;
};

/// One value per repetition: microseconds of processor time, of the case "heap" bytes per row.
typedef std::vector<double> tSamples;

/// The samples of a page size, by case, by subject.
typedef std::map<std::string, std::map<std::string, tSamples>> tSizeResults;
typedef std::map<int, tSizeResults> tResults;

namespace Measuring
{
extern const char* const g_strHeap;
extern const char* const g_strReference; ///< the subject that the others are compared with

std::vector<std::string> SubjectNames();

/// The cases in the order in which they are run.
std::vector<std::string> CaseNames();

/// Runs all subjects in turn, as often as planned.
tResults Run(const sPlan& in_plan);

/// Runs the planned case of the planned subject, the last time inside MeasuredStep.
/// \return false when there is no such case or it does not apply to the subject
bool RunOnce(const sPlan& in_plan);
} // namespace Measuring

#endif
