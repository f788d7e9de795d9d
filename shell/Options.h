// The command line. In: its words. Out: what the program is to do, or why it cannot.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace vistor {

struct Options {
    bool play = false;
    QString profile;                 ///< full path of the file to open; empty: none was given
    QString source;                  ///< a data source's descriptor; empty: none was given
    int tab = 1;                     ///< the tab in front, from 1
    QString screenshot;              ///< a file; empty: none
    std::optional<double> exitAfter; ///< s
    bool styleChosen = false;        ///< by a word for the toolkit
    QString problem;                 ///< not empty: what is wrong with the words, and nothing else counts
};

/// Reads the words, the program's own name first. "--help" and "--version" print and end the process. Those
/// of the toolkit ("-platform", "-style" and the like) are left to it.
Options readOptions(const QStringList& words);

} // namespace vistor
