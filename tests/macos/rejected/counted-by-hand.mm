// rejected: ARC forbids
#import <Foundation/Foundation.h>
@interface Owner : NSObject
@end
@implementation Owner
- (void)dealloc {
    [super dealloc];
}
@end
