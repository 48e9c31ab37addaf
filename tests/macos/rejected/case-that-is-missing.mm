// rejected: not handled in switch
#include "platform/macos/MacTrust.h"
int number(brivandel::Consent consent) {
    switch (consent) {
    case brivandel::Consent::Given:
        return 1;
    case brivandel::Consent::Refused:
        return 2;
    }
    return 0;
}
