#pragma once

#include <CLI/App.hpp>
#include <string>
#include <vector>

#include "program/arguments/Command.h"
#include "program/arguments/Options.h"

namespace hierfit::program {

/// The commands with their options, and what a command line that was parsed has set them to.
class Interface {
  public:
    Interface();
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;

    CLI::App& App() { return fApp; }
    std::vector<std::string> CommandNames() const;

    /// What the value of an option may be, or an argument.
    const Values& ValuesOf(const CLI::Option* option) const;

    /// The command that was given, as it stands; nothing is checked that concerns several options.
    Command TakeCommand();

  private:
    CLI::App* AddCommand(const std::string& name, const std::string& about, const std::string& usage,
                         const std::string& examples, const std::string& footer);
    void AddReport();
    void AddRender();
    void AddCheck();
    void AddList();
    void AddBatch();

    CLI::App fApp;
    ValueTable fValues;
    ReportCommand fReport;
    RenderCommand fRender;
    CheckCommand fCheck;
    ListCommand fList;
    BatchCommand fBatch;
    VersionCommand fVersion;
};

}  // namespace hierfit::program
