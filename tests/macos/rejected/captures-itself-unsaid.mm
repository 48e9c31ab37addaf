// rejected: implicitly retain|retain cycle|implicitly retains 'self'
#import <Foundation/Foundation.h>
@interface Keeper : NSObject
@end
@implementation Keeper {
    void (^_handler)(void);
    int _count;
}
- (void)begin {
    _handler = ^{
        ++_count;
    };
}
@end
