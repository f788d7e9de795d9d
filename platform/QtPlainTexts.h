// Texts on the screen are plain. In: the application object. Out: labels and tool tips that show what they
// are given to the letter, whoever made it.
#pragma once

namespace vistor {

/// From now on no label of the program guesses that its text is markup, nor does a tool tip, a message or a
/// window of the toolkit's own: they are labels all. Names, captions and paths come from files, and markup in
/// them could have any file opened. A label that was told to show markup still does. Once, when the
/// application object stands.
void keepTextsPlain();

} // namespace vistor
