#pragma once

#include <cstdio>
#include <string>

namespace quellbrook::sample {

// A progress bar on one line of a terminal: "Creating ... [#######       ]  50 %". For a stream that is not a terminal,
// writes only the text, once. Writes nothing before the first Show.
class ProgressBar {
public:
    // The text precedes the bar and has no line end. The stream must outlive this.
    ProgressBar(std::string words, std::FILE* stream, bool isTerminal);
    // Writes to standard error.
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
