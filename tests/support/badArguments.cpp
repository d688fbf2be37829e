#include "support/badArguments.h"

#include "support/current.h"
#include "support/fill.h"
#include "support/memory.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <memory>

namespace support::detail {

namespace {

/// A bad value of an argument, or none.
struct Fault {
    const BadArgument* argument = nullptr;
    std::size_t index = 0;
    const BadValue* value = nullptr;
};

class Trial {
  public:
    explicit Trial(BadSubject& theSubject) : subject(theSubject)
    {
        for (BadArgument& argument : subject.arguments) {
            memory.push_back(nullptr);
            if (!argument.isPointer || argument.memory == 0)
                continue;
            memory.back() =
                std::make_unique<Guarded<std::byte>>(argument.memory, Placement{Placement::atEnd, 0});
            argument.good = slotOf(memory.back()->data());
        }
    }

    std::string run()
    {
        CurrentScope scope(
            [](const void* self, char* text, std::size_t size) {
                std::snprintf(text, size, "%s", static_cast<const Trial*>(self)->current.c_str());
            },
            this);
        if (const ZelStatus status = call({}, {}); status < 0)
            return subject.name + ": refuses good arguments with status " + std::to_string(status);
        std::vector<Fault> faults;
        for (std::size_t i = 0; i < subject.arguments.size(); i++)
            for (const BadValue& bad : subject.arguments[i].bad)
                faults.push_back({&subject.arguments[i], i, &bad});
        for (const Fault& a : faults) {
            if (std::string failure = tried(a, {}); !failure.empty())
                return failure;
            for (const Fault& b : faults)
                if (a.index < b.index)
                    if (std::string failure = tried(a, b); !failure.empty())
                        return failure;
        }
        return {};
    }

  private:
    static ZelStatus statusOf(const Fault& a, const Fault& b)
    {
        const bool aFails = a.value && a.value->status != zelStatusOk;
        const bool bFails = b.value && b.value->status != zelStatusOk;
        if (aFails && bFails) // a stands before b in the argument list
            return b.argument->rank < a.argument->rank ? b.value->status : a.value->status;
        return aFails ? a.value->status : bFails ? b.value->status : ZelStatus{zelStatusOk};
    }

    std::string text(const Fault& a, const Fault& b) const
    {
        std::string text = subject.name + " with";
        for (const Fault* fault : {&a, &b})
            if (fault->value)
                text += (fault == &b ? " and argument " : " argument ") + std::to_string(fault->index + 1) +
                        " = " + fault->value->text;
        return text;
    }

    std::string tried(const Fault& a, const Fault& b)
    {
        const ZelStatus wanted = statusOf(a, b);
        current = text(a, b);
        const ZelStatus status = call(a, b);
        if (wanted < 0 ? status != wanted : status < 0)
            return current + ": status " + std::to_string(status) + ", expected " + std::to_string(wanted);
        if (wanted >= 0)
            return {};
        for (std::size_t i = 0; i < memory.size(); i++)
            if (memory[i]) {
                for (std::size_t k = 0; k < memory[i]->size(); k++)
                    if ((*memory[i])[k] != content(i, k))
                        return current + ": wrote to argument " + std::to_string(i + 1) + ", byte " +
                               std::to_string(k);
                if (!memory[i]->intact())
                    return current + ": wrote outside argument " + std::to_string(i + 1);
            }
        return {};
    }

    /// Small numbers in every type, different from argument to argument.
    static std::byte content(std::size_t argument, std::size_t k)
    {
        return static_cast<std::byte>(k % 4 == 3 ? 0x3E : k % 4 == 0 ? argument + k / 4 : 0);
    }

    ZelStatus call(const Fault& a, const Fault& b)
    {
        std::vector<Slot> slots;
        for (std::size_t i = 0; i < subject.arguments.size(); i++) {
            slots.push_back(subject.arguments[i].good);
            if (memory[i])
                for (std::size_t k = 0; k < memory[i]->size(); k++)
                    memory[i]->set(k, content(i, k));
        }
        for (const Fault* fault : {&a, &b})
            if (fault->value)
                slots[fault->index] = fault->value->slot;
        return subject.call(subject.function, slots.data());
    }

    BadSubject& subject;
    std::vector<std::unique_ptr<Guarded<std::byte>>> memory;
    std::string current;
};

} // namespace

void addBadLengths(BadArgument& argument, std::size_t size, bool isSigned, ZelStatus status)
{
    std::vector<std::int64_t> bad{0};
    if (isSigned) {
        bad.push_back(-1);
        if (size == 4)
            bad.push_back(INT32_MIN);
        else // also one whose low half is a good length
            bad.insert(bad.end(), {INT64_MIN, INT64_MIN + 3, -(std::int64_t{1} << 32) + 3});
    }
    for (const std::int64_t length : bad)
        argument.bad.push_back({size == 4 ? slotOf(static_cast<std::int32_t>(length)) : slotOf(length),
                                status, std::to_string(length)});
}

std::string runBadArguments(BadSubject& subject)
{
    return Trial(subject).run();
}

void reportBadArguments(const BadSubject& subject, const std::string& failure)
{
    if (!failure.empty())
        ADD_FAILURE_AT(subject.file, subject.line) << failure;
}

} // namespace support::detail
