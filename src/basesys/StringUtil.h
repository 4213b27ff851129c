#pragma once

#include <string>
#include <vector>

// Text helpers for the line-based readers.
class StringUtil {
public:
    // Removes spaces, tabs and carriage returns from the chosen ends.
    static void trim(std::string& text, bool left = true, bool right = true);

    // Cuts text at runs of delimiter characters; a run never yields an empty
    // part. After maxSplits cuts (0: no limit) the rest of the text, as it
    // stands, is the last part. preserveDelimiters adds each run of
    // delimiters between two parts as a part of its own.
    static std::vector<std::string> split(const std::string& text,
                                          const std::string& delimiters = "\t\n ",
                                          unsigned int maxSplits = 0,
                                          bool preserveDelimiters = false);
};
