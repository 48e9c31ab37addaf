#include "Control.h"
#include "Doubles.h"
#include "Private.h"

#include <algorithm>
#include <vector>

using namespace standin;

@interface StandinNotificationToken : NSObject
@end
@implementation StandinNotificationToken {
@public
    QString _name;
    void* _object; // an observation does not keep whom it observes
    void (^_block)(NSNotification*);
}
@end

static std::vector<StandinNotificationToken*>& tokens() {
    static std::vector<StandinNotificationToken*> tokens;
    return tokens;
}

@implementation NSNotification
@end

@implementation NSNotificationCenter
+ (NSNotificationCenter*)defaultCenter {
    return [[NSNotificationCenter alloc] init];
}
- (id<NSObject>)addObserverForName:(NSNotificationName)name
                            object:(id)obj
                             queue:(NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification*))block {
    if (queue != nil) {
        world().calls += QStringLiteral("observed on a queue");
    }
    StandinNotificationToken* token = [[StandinNotificationToken alloc] init];
    token->_name = characters(name);
    token->_object = (__bridge void*)obj;
    token->_block = [block copy];
    tokens().push_back(token);
    return token;
}
- (void)removeObserver:(id)observer {
    std::erase(tokens(), observer);
}
@end

void standin::postNotification(NSString* name, void* object, const std::function<void()>& meanwhile) {
    std::vector<void (^)(NSNotification*)> blocks;
    for (const StandinNotificationToken* token : tokens()) {
        if (token->_name == characters(name) && token->_object == object) {
            blocks.push_back(token->_block);
        }
    }
    if (meanwhile) {
        meanwhile();
    }
    elsewhere([&] {
        for (const auto& block : blocks) {
            block([[NSNotification alloc] init]);
        }
    });
}
