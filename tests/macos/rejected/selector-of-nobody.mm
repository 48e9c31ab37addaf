// rejected: undeclared selector
#import <Foundation/Foundation.h>
SEL selector() {
    return @selector(observeNothingAtAll:);
}
