// rejected: messaging unqualified id
#import <Foundation/Foundation.h>
bool isText(id object) {
    return [object isKindOfClass:NSString.class];
}
