// Turns the script that a person writes into what the script engine gets. In and out: text.
#pragma once

class QString;

namespace vistor {

/// Replaces, without regard to case and everywhere, "VAR_nnnn" and "CAR_n" by calls and bare function names
/// by "Script_name(". The bracket that such a name brings along stands in place of the person's own: one
/// writes "sign x)". Names are found inside longer words and in comments too.
void RewriteScript(QString& formula);

} // namespace vistor
