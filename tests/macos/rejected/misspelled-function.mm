// rejected: undeclared identifier 'AXIsProcessTrustet'
#import <ApplicationServices/ApplicationServices.h>
bool isTrusted() {
    return AXIsProcessTrustet() != 0;
}
