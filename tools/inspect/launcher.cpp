/// inspect: starts a program with the inspector inside it, and ends as the program does.
/// \file

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>

namespace fs = std::filesystem;

namespace
{
const int g_iOwnFailure = 125; ///< what `env` and `timeout` say for it, too
const int g_iNotFound = 127;

const char* const g_strUsage = "usage: inspect [--exercise EDITS] PROGRAM [ARGUMENT...]\n"
                               "\n"
                               "Starts a Qt 5 or Qt 6 Widgets program with an inspector beside it.\n"
                               "Ctrl+Shift+click in the program selects a widget.\n"
                               "\n"
                               "--exercise EDITS  selects every object, reads every property, makes that many random\n"
                               "                  edits and undoes each, closes the program, and says what happened\n";

struct sCommand
{
    std::string edits; ///< empty: nobody wants an exercise
    char** program = nullptr;
};

volatile pid_t g_iProgram = 0; ///< what signals are handed on to

void Say(const std::string& in_strText)
{
    std::fprintf(stderr, "inspect: %s\n", in_strText.c_str());
}

/// False when the command line makes no sense.
bool Parse(char** in_pArguments, sCommand& out_command)
{
    char** pNext = in_pArguments + 1;
    if (*pNext && std::strcmp(*pNext, "--exercise") == 0)
    {
        ++pNext;
        const bool bNumber = *pNext && **pNext && std::strspn(*pNext, "0123456789") == std::strlen(*pNext);
        if (!bNumber)
        {
            return false;
        }
        out_command.edits = *pNext++;
    }
    out_command.program = pNext;
    return *pNext && **pNext != '-';
}

/// The file that a command names, found as the shell finds it; empty when there is none.
fs::path Find(const std::string& in_strCommand)
{
    if (in_strCommand.find('/') != std::string::npos)
    {
        return access(in_strCommand.c_str(), X_OK) == 0 ? fs::path(in_strCommand) : fs::path();
    }
    const char* strPath = std::getenv("PATH");
    std::string strRest = strPath ? strPath : "/usr/bin:/bin";
    while (!strRest.empty())
    {
        const std::size_t uEnd = std::min(strRest.find(':'), strRest.size());
        fs::path file = fs::path(strRest.substr(0, uEnd)) / in_strCommand;
        if (access(file.c_str(), X_OK) == 0 && fs::is_regular_file(file))
        {
            return file;
        }
        strRest.erase(0, uEnd + 1);
    }
    return fs::path();
}

bool IsBinary(const fs::path& in_file)
{
    char magic[4] = {};
    std::ifstream(in_file, std::ios::binary).read(magic, sizeof magic);
    return std::memcmp(magic, "\177ELF", sizeof magic) == 0;
}

/// What a command prints.
std::string Output(const char* in_strCommand, const char* in_strArgument)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
    {
        return std::string();
    }
    const pid_t iChild = fork();
    if (iChild == 0)
    {
        dup2(ends[1], STDOUT_FILENO);
        dup2(open("/dev/null", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
        execlp(in_strCommand, in_strCommand, in_strArgument, static_cast<char*>(nullptr));
        _exit(g_iNotFound);
    }
    close(ends[1]);
    std::string strOutput;
    char buffer[4096];
    for (ssize_t iRead; (iRead = read(ends[0], buffer, sizeof buffer)) > 0;)
    {
        strOutput.append(buffer, static_cast<std::size_t>(iRead));
    }
    close(ends[0]);
    waitpid(iChild, nullptr, 0);
    return strOutput;
}

/// The major version of the Qt that a binary is linked with, itself or through its libraries; 0 for none.
int LinkedQt(const fs::path& in_file)
{
    const std::string strLibraries = Output("ldd", in_file.c_str());
    for (int iMajor : {6, 5})
    {
        if (strLibraries.find("libQt" + std::to_string(iMajor) + "Core.so") != std::string::npos)
        {
            return iMajor;
        }
    }
    return strLibraries.find("libQtCore.so.4") != std::string::npos ? 4 : 0;
}

/// Where the plug-ins of a Qt are: beside this program in a build tree, in the library folder once installed.
fs::path PluginFolder(int in_iMajor)
{
    const fs::path here = fs::read_symlink("/proc/self/exe").parent_path();
    const std::string strQt = "qt" + std::to_string(in_iMajor);
    for (const fs::path& folder : {here / strQt, here / INSPECT_PLUGIN_FOLDER / strQt})
    {
        if (fs::exists(folder / "generic"))
        {
            return folder.lexically_normal();
        }
    }
    return fs::path();
}

/// Whether there is a point in starting the program. A script may start anything, so it is just tried.
bool CanInspect(const std::string& in_strName, const fs::path& in_file)
{
    if (!IsBinary(in_file))
    {
        return true;
    }
    const int iQt = LinkedQt(in_file);
    if (iQt == 0)
    {
        Say(in_strName + " itself does not use Qt; the inspector opens if it loads Qt or starts a program that does.");
        return true;
    }
    if (iQt == 4)
    {
        Say(in_strName + " uses Qt 4; only programs with Qt 5 or Qt 6 can be inspected.");
        return false;
    }
    if (PluginFolder(iQt).empty())
    {
        Say(in_strName + " uses Qt " + std::to_string(iQt) + ", and the inspector for that is not installed.");
        return false;
    }
    return true;
}

/// Puts an entry before (or after) what a variable already lists.
void Add(const char* in_strVariable, const std::string& in_strEntry, char in_cSeparator)
{
    const char* strOld = std::getenv(in_strVariable);
    const std::string strValue = strOld && *strOld ? in_strEntry + in_cSeparator + strOld : in_strEntry;
    setenv(in_strVariable, strValue.c_str(), 1);
}

/// Each Qt takes from these folders what was built for it, and leaves the rest alone: so the right one is loaded also
/// by a program that a script starts, or that brings its Qt itself.
void PrepareEnvironment(const sCommand& in_command, int in_iReport)
{
    for (int iMajor : {5, 6})
    {
        const fs::path folder = PluginFolder(iMajor);
        if (!folder.empty())
        {
            Add("QT_PLUGIN_PATH", folder.string(), ':');
            Add("INSPECT_PLUGINS", folder.string(), ':');
        }
    }
    Add("QT_QPA_GENERIC_PLUGINS", "inspect", ',');
    setenv("INSPECT_REPORT", std::to_string(in_iReport).c_str(), 1);
    if (!in_command.edits.empty())
    {
        setenv("INSPECT_EXERCISE", in_command.edits.c_str(), 1);
    }
}

void HandOn(int in_iSignal)
{
    kill(g_iProgram, in_iSignal);
}

/// Waits for the program and ends this process the same way.
int EndAs(int in_iStatus)
{
    if (WIFSIGNALED(in_iStatus))
    {
        signal(WTERMSIG(in_iStatus), SIG_DFL);
        raise(WTERMSIG(in_iStatus));
        return 128 + WTERMSIG(in_iStatus);
    }
    return WEXITSTATUS(in_iStatus);
}

/// Whether an inspector has said that it was loaded.
bool HasReported(int in_iReport)
{
    char cReport = 0;
    fcntl(in_iReport, F_SETFL, O_NONBLOCK);
    return read(in_iReport, &cReport, 1) == 1;
}

int Run(const sCommand& in_command)
{
    int report[2];
    if (pipe(report) != 0)
    {
        Say(std::strerror(errno));
        return g_iOwnFailure;
    }
    g_iProgram = fork();
    if (g_iProgram == 0)
    {
        close(report[0]);
        PrepareEnvironment(in_command, report[1]);
        execvp(*in_command.program, in_command.program);
        _exit(g_iNotFound);
    }
    close(report[1]);
    // The terminal sends these two to the program as well.
    signal(SIGINT, SIG_IGN);
    signal(SIGQUIT, SIG_IGN);
    signal(SIGTERM, HandOn);
    signal(SIGHUP, HandOn);
    int iStatus = 0;
    while (waitpid(g_iProgram, &iStatus, 0) < 0 && errno == EINTR)
    {}
    if (!HasReported(report[0]))
    {
        Say(std::string(*in_command.program) + " has ended, and no Qt in it or in what it started took the inspector.");
    }
    return EndAs(iStatus);
}
} // namespace

int main(int, char** in_pArguments)
{
    sCommand command;
    if (!Parse(in_pArguments, command))
    {
        std::fputs(g_strUsage, stderr);
        return g_iOwnFailure;
    }
    const std::string strName = *command.program;
    const fs::path file = Find(strName);
    if (file.empty())
    {
        Say(strName + ": no such program");
        return g_iNotFound;
    }
    return CanInspect(strName, file) ? Run(command) : g_iOwnFailure;
}
