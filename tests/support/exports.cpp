#include "support/exports.h"

namespace support {

std::string nameOf(std::string_view names, std::size_t index)
{
    for (; index > 0; index--)
        names.remove_prefix(names.find(',') + 1);
    names.remove_prefix(names.find_first_not_of(' '));
    return std::string(names.substr(0, names.find(',')));
}

} // namespace support
