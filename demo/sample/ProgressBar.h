#pragma once

#include <cstdio>
#include <string>

namespace quellbrook::sample {

// How far a making has come, as one line of a terminal that is written anew: "Making ... [#######       ]  50 %".
// A stream that is no terminal gets the words alone, once. Nothing is written before the first Show.
class ProgressBar {
public:
    // The words stand before the bar, without a line's end. The stream must outlive this.
    ProgressBar(std::string words, std::FILE* stream, bool isTerminal);
    // To standard error.
    explicit ProgressBar(std::string words);
    // Ends the line.
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    // 0 to 100.
    void Show(int percent);

private:
    std::string m_words;
    std::FILE* m_stream;
    bool m_isTerminal;
    int m_shown = -1;
};

}  // namespace quellbrook::sample
