// Ropes and html built from arbitrary bytes by a machine with a few registers, beside plain strings that are built the
// same way: what the one means must be what the other holds, and what occurs in the one must occur in the other.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/stack_allocator.h"
#include "fuzz/expect.h"
#include "values/html.h"

namespace {

constexpr size_t kLongestText = 4096;

struct Register {
    rope built;
    std::string plain;
};

std::string PlainlyEscaped(std::string_view text) {
    std::string escaped;
    for (char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

class Machine {
public:
    void Run(std::string_view program) {
        while (program.size() >= 2) {
            const auto operation = static_cast<unsigned char>(program[0]);
            const size_t length = static_cast<unsigned char>(program[1]) % 8;
            program.remove_prefix(2);
            const std::string_view text = program.substr(0, length);
            program.remove_prefix(text.size());
            Step(operation, text);
        }
        for (const Register& r : registers_) {
            Expect(r.built.Flattened().View() == r.plain);
            std::string appended = "x";
            r.built.AppendTo(appended);
            Expect(appended == "x" + r.plain);
        }
    }

private:
    static constexpr size_t kRegisters = 4;

    void Step(unsigned operation, std::string_view text) {
        Register& to = registers_[operation % kRegisters];
        const Register from = registers_[operation / kRegisters % kRegisters];
        if (to.plain.size() + from.plain.size() + text.size() > kLongestText) {
            to = {};
        }
        const inspector_string string(text);
        switch (operation / (kRegisters * kRegisters) % 6) {
            case 0:
                to = {to.built & string, to.plain + std::string(text)};
                break;
            case 1:
                to = {string & to.built, std::string(text) + to.plain};
                break;
            case 2:
                to = {to.built & from.built, to.plain + from.plain};
                break;
            case 3:
                to = {to.built & AsHTML(string).markup, to.plain + PlainlyEscaped(text)};
                break;
            case 4:
                to = {HTMLElement(string, {}, html_rope{from.built}).markup,
                      "<" + std::string(text) + ">" + from.plain + "</" + std::string(text) + ">"};
                break;
            default:
                Expect(to.built.Contains(string) == (to.plain.find(text) != std::string::npos));
                break;
        }
        Expect(to.built.Length() == to.plain.size());
    }

    Register registers_[kRegisters];
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    StackAllocator<4096> memory;
    const AllocatorInstaller installed(memory);
    Machine().Run(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
