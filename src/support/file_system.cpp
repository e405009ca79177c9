#include "support/file_system.h"

namespace snippetarium {

std::string DescribeUnlisted(const UnlistedName& unlisted) {
    const std::string leftOut = "'" + unlisted.name + "' was left out: ";
    switch (unlisted.reason) {
        case UnlistedReason::Backslash:
            return leftOut + "its name holds a backslash. Rename it to have it listed.";
        case UnlistedReason::NotUtf8:
            return leftOut + "its name is not valid UTF-8. Rename it to have it listed.";
        case UnlistedReason::LeadsBack:
            return leftOut + "it is a link to a folder that it lies in itself.";
        case UnlistedReason::DeadLink:
            return leftOut + "it is a link that leads nowhere. Mend the link to have it listed.";
    }
    return leftOut;
}

}  // namespace snippetarium
