#pragma once

#include <string>
#include <string_view>

#include "Declaration.h"

namespace kr {

/// The version of the program and the library, "0.1.0".
std::string_view programVersion();

/// "kr build [OPTION]... JOB FILE..."
std::string usageLine(const VerbDeclaration& verb);

/// What `kr help` shows.
std::string helpText();

/// What `kr help VERB` shows.
std::string helpText(const VerbDeclaration& verb);

/// The declaration of every verb as JSON, by data/schemas/help.schema.json.
std::string helpJson();

/// The manual page of the program, section 1, in man macros.
std::string manualPage();

/// The manual page of a verb: kr-build(1).
std::string manualPage(const VerbDeclaration& verb);

/// The completion for bash, and for zsh through bashcompinit.
std::string completionScript();

/// docs/reference.md.
std::string referenceDocument();

}  // namespace kr
