// SPDX-License-Identifier: MIT
// Many questions after one load: a script that asks ten thousand questions
// pays for the installation once instead of ten thousand times.
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>

#include "command.h"
#include "shell_words.h"
#include "tool_description.h"

namespace devctrl_tool {
namespace {

// What one line printed, captured so that it can be framed: one JSON
// document per line, and errors that say which line they belong to.
struct LineResult {
    int status = 0;
    std::string out;
    std::string err;
};

LineResult runCaptured(const std::vector<std::string>& words) {
    std::ostringstream out;
    std::ostringstream err;
    std::streambuf* const previousOut = std::cout.rdbuf(out.rdbuf());
    std::streambuf* const previousErr = std::cerr.rdbuf(err.rdbuf());
    LineResult result;
    try {
        result.status = runCommandLine(words);
    } catch (...) {
        std::cout.rdbuf(previousOut);
        std::cerr.rdbuf(previousErr);
        throw;
    }
    std::cout.rdbuf(previousOut);
    std::cerr.rdbuf(previousErr);
    result.out = out.str();
    result.err = err.str();
    return result;
}

// `text` (one JSON value, possibly spread over lines) on one line; `null`
// when the command printed nothing, so that answers and lines stay paired.
std::string oneLineJson(const std::string& text) {
    if (text.find_first_not_of(" \t\r\n") == std::string::npos)
        return "null";
    // A document must be an array or an object: parse the value inside one.
    QJsonParseError error{};
    const QJsonDocument document =
        QJsonDocument::fromJson(QByteArray::fromStdString("[" + text + "]"), &error);
    if (error.error != QJsonParseError::NoError || !document.isArray())
        return text.substr(0, text.find_last_not_of("\r\n") + 1);
    const QByteArray compact = QJsonDocument(document.array()).toJson(QJsonDocument::Compact);
    return compact.mid(1, compact.size() - 2).toStdString();
}

// Error lines of a command with the line number put in: "devctrl: line 3: ...".
std::string numbered(const std::string& err, long lineNumber) {
    const std::string tag = "line " + std::to_string(lineNumber) + ": ";
    std::string framed;
    std::istringstream lines(err);
    for (std::string line; std::getline(lines, line);) {
        const std::string prefix = "devctrl: ";
        if (line.compare(0, prefix.size(), prefix) == 0)
            framed += prefix + tag + line.substr(prefix.size()) + '\n';
        else
            framed += "devctrl: " + tag + line + '\n';
    }
    return framed;
}

class ShellCommand : public Command {
  public:
    std::string name() const override { return "shell"; }
    std::string summary() const override {
        return "Load once, then answer one command per line from standard input or a file";
    }
    void configure(CLI::App& command) override {
        command.add_option("FILE", m_file, "File of commands ('-' or none: standard input)");
        command.footer(
            "Each line is a devctrl command without the word devctrl, quoted as in a shell "
            "('ZR12-*BG*'); empty lines and lines starting with # are skipped. Each answer is "
            "what the command alone prints. With --json every line gets exactly one line of "
            "output: its JSON document, or null when it printed nothing. Errors go to standard "
            "error as 'devctrl: line N: message' and the session goes on. --data cannot change "
            "inside a session. --json or --format given before shell holds for every line that "
            "does not choose its own.\n\n"
            "Exit status: 0 when every line exited 0, else the highest status of a line (so 1 "
            "also when an exists, check or validate line answered no).\n\n"
            "Example: printf 'part ZR12-6BG100C\\nexists ZR4-6QF48C\\n' | devctrl --json shell");
    }
    // Each line answers as its command does, under that command's schema.
    std::string schema() const override { return ""; }
    int run(Context& context) override {
        std::ifstream file;
        std::istream* input = &std::cin;
        if (!m_file.empty() && m_file != "-") {
            file.open(m_file);
            if (!file)
                throw ToolError("cannot read " + m_file + ": " + std::strerror(errno));
            input = &file;
        }
        context.mngr();  // the one load, with its progress line and traces
        int worst = 0;
        long lineNumber = 0;
        for (std::string line; std::getline(*input, line);) {
            ++lineNumber;
            worst = std::max(worst, answer(context, line, lineNumber));
            std::cout.flush();  // a driver reading answers as it writes lines
        }
        if (input->bad())
            throw ToolError("cannot read " +
                            (m_file.empty() ? std::string("standard input") : m_file));
        return worst;
    }

  private:
    static int answer(Context& context, const std::string& line, long lineNumber) {
        std::vector<std::string> words;
        try {
            words = splitShellWords(line);
        } catch (const std::invalid_argument& e) {
            return refuse(context, lineNumber, e.what());
        }
        if (words.empty())
            return 0;
        for (const std::string& word : words) {
            if (word == "--data" || word.rfind("--data=", 0) == 0)
                return refuse(context, lineNumber,
                              "--data cannot change inside a session; start another shell");
            if (word == "shell")
                return refuse(context, lineNumber, "a shell cannot start inside a shell");
        }
        // The session's format is every line's, unless the line chooses one.
        const bool choosesFormat = std::any_of(words.begin(), words.end(), [](const auto& word) {
            return word == "--json" || word == "--format" || word.rfind("--format=", 0) == 0;
        });
        if (!choosesFormat && context.out.format() != Format::Lines) {
            words.push_back("--format");
            words.push_back(formatName(context.out.format()));
        }
        const LineResult result = runCaptured(words);
        if (context.out.json())
            std::cout << oneLineJson(result.out) << '\n';
        else
            std::cout << result.out;
        std::cerr << (context.out.json() ? result.err : numbered(result.err, lineNumber));
        return result.status;
    }

    static int refuse(Context& context, long lineNumber, const std::string& why) {
        if (context.out.json())
            std::cout << "null\n";
        std::cerr << "devctrl: line " << lineNumber << ": " << why << '\n';
        return 2;
    }

    std::string m_file;
};

}  // namespace
}  // namespace devctrl_tool

DEVCTRL_REGISTER_COMMAND(devctrl_tool::ShellCommand)
