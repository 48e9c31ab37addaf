// rejected: method definition for 'invalidate' not found
#import <Foundation/Foundation.h>
@interface Watcher : NSObject
- (void)invalidate;
@end
@implementation Watcher
@end
