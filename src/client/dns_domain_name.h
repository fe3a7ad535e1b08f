// The DNS domain of this machine, from what the machine itself has written down: nobody on the network is asked, so
// that a question can never wait for a server.
#ifndef CLIENT_DNS_DOMAIN_NAME_H
#define CLIENT_DNS_DOMAIN_NAME_H

#include <optional>
#include <string>
#include <string_view>

#include "foundation/line_receiver.h"

// The part of a name behind its first ".", less one at its end.  None where that is nothing.
std::optional<std::string_view> DomainOf(std::string_view name);

// Reads lines of words, as /etc/hosts and /etc/resolv.conf have them: separated by blanks, up to a "#".  A line is read
// as far as 1024 bytes; a word that is cut there does not count.
class WordLines : public LineReceiver {
public:
    void Start(uint64_t) override { length_ = 0; }
    void Text(const unsigned char* begin, const unsigned char* end) override;
    void EndOfLine(uint64_t, uint64_t) override;
    void Finish(uint64_t) override { EndOfLine(0, 0); }

protected:
    virtual void Line(std::string_view words) = 0;

    // Takes the next word off `words`; empty at their end.
    static std::string_view TakeWord(std::string_view& words);

private:
    static constexpr size_t kLongestLine = 1024;

    char line_[kLongestLine];
    size_t length_ = 0;
    bool cut_ = false;
};

// Finds the domain that /etc/hosts gives a host: that of the first name "<host>.<domain>" on a line that names it.
class HostsDomain final : public WordLines {
public:
    explicit HostsDomain(std::string_view host) : host_(host) {}
    std::string domain;  // empty until it is found

private:
    void Line(std::string_view words) override;

    const std::string host_;
};

// Finds the domain of /etc/resolv.conf: its "domain", or the first of its "search" list.  The last line counts.
class ResolverDomain final : public WordLines {
public:
    std::string domain;

private:
    void Line(std::string_view words) override;
};

// False where the machine knows of none.
bool GetDnsDomainName(std::string& name);

#endif
