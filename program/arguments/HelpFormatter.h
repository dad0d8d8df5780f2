#pragma once

#include <CLI/App.hpp>
#include <CLI/Formatter.hpp>
#include <string>
#include <utility>

namespace hierfit::program {

/// Help with usage lines in the words of the project, and examples ahead of the options.
class HelpFormatter : public CLI::Formatter {
  public:
    HelpFormatter(std::string usage, std::string examples) : fUsage(std::move(usage)), fExamples(std::move(examples)) {
        label("Positionals", "Arguments");
        label("Subcommands", "Commands");
    }

    std::string make_usage(const CLI::App*, std::string) const override {
        return "Usage: " + fUsage + "\n\nExamples:\n" + fExamples;
    }

    /// Of an argument, what stands for it is all that is to be known of its name.
    std::string make_option_name(const CLI::Option* option, bool isArgument) const override {
        return isArgument ? option->get_option_text() : CLI::Formatter::make_option_name(option, isArgument);
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_positional() ? "" : CLI::Formatter::make_option_opts(option);
    }

  private:
    std::string fUsage;
    std::string fExamples;
};

}  // namespace hierfit::program
