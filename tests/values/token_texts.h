// Token sequences for the tests of small languages: every sequence up to a length, written out with blanks where two
// tokens would otherwise be read as one.
//
// A token is a letter that stands for its class; what a language is, is told by a regular expression over these
// letters, which knows nothing of the parser under test.
#ifndef TESTS_VALUES_TOKEN_TEXTS_H
#define TESTS_VALUES_TOKEN_TEXTS_H

#include <regex.h>

#include <cctype>
#include <functional>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// A language as an extended regular expression over whole sequences.
class TokenLanguage {
public:
    explicit TokenLanguage(const std::string& expression) {
        if (regcomp(&compiled_, ("^(" + expression + ")$").c_str(), REG_EXTENDED | REG_NOSUB) != 0) {
            throw std::invalid_argument(expression);
        }
    }
    TokenLanguage(const TokenLanguage&) = delete;
    TokenLanguage& operator=(const TokenLanguage&) = delete;
    ~TokenLanguage() { regfree(&compiled_); }

    bool Admits(const std::string& tokens) const { return regexec(&compiled_, tokens.c_str(), 0, nullptr, 0) == 0; }

private:
    regex_t compiled_;
};

struct TokenTexts {
    // The texts that a class may be written as.
    std::map<char, std::vector<std::string>> writings;
    std::mt19937 random{20000229};

    std::string Written(std::string_view tokens) {
        std::string text = Blanks();
        for (const char token : tokens) {
            const std::vector<std::string>& texts = writings.at(token);
            const std::string& next = texts[random() % texts.size()];
            const auto word = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.'; };
            const auto kind = [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; };
            if (!text.empty() && word(text.back()) && word(next.front()) && kind(text.back()) == kind(next.front())) {
                text += ' ';
            }
            text += Blanks() + next;
        }
        return text + Blanks();
    }

    // Calls `visit` with every sequence of up to `length` tokens.
    void EverySequence(size_t length, const std::function<void(const std::string&)>& visit) const {
        std::string tokens;
        Extend(tokens, length, visit);
    }

    // Calls `visit` with `count` sequences that are each a valid one with a few tokens dropped, doubled or changed.
    void NearMisses(const std::vector<std::string>& valid, int count,
                    const std::function<void(const std::string&)>& visit) {
        std::string all;
        for (const auto& writing : writings) {
            all += writing.first;
        }
        for (int i = 0; i < count; ++i) {
            std::string tokens = valid[random() % valid.size()];
            for (unsigned change = random() % 3; change != 0 && !tokens.empty(); --change) {
                const size_t at = random() % tokens.size();
                const char other = all[random() % all.size()];
                switch (random() % 3) {
                    case 0:
                        tokens.erase(at, 1);
                        break;
                    case 1:
                        tokens[at] = other;
                        break;
                    default:
                        tokens.insert(at, 1, other);
                        break;
                }
            }
            visit(tokens);
        }
    }

private:
    std::string Blanks() {
        static const char* const blanks[] = {"", "", "", " ", "\t", "\n", "\r", " \t "};
        return blanks[random() % 8];
    }

    void Extend(std::string& tokens, size_t length, const std::function<void(const std::string&)>& visit) const {
        visit(tokens);
        if (tokens.size() == length) {
            return;
        }
        for (const auto& writing : writings) {
            tokens.push_back(writing.first);
            Extend(tokens, length, visit);
            tokens.pop_back();
        }
    }
};

#endif
