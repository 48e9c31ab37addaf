#include "Control.h"
#include "Doubles.h"
#include "Private.h"

using namespace standin;

static NSUInteger enumerate(const std::vector<id>& objects, NSFastEnumerationState* state,
                            id __unsafe_unretained* buffer, NSUInteger capacity) {
    static unsigned long never = 0;
    state->itemsPtr = buffer;
    state->mutationsPtr = &never;
    NSUInteger count = 0;
    while (count < capacity && state->state < objects.size()) {
        buffer[count++] = objects[state->state++];
    }
    return count;
}

@implementation NSArray {
@public
    std::vector<id> _objects;
}
+ (instancetype)arrayWithObjects:(const id[])objects count:(NSUInteger)cnt {
    return array({objects, objects + cnt});
}
- (NSUInteger)count {
    return _objects.size();
}
- (id)firstObject {
    return _objects.empty() ? nil : _objects.front();
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)len {
    return enumerate(_objects, state, buffer, len);
}
@end

NSArray* standin::array(const std::vector<id>& objects) {
    NSArray* array = [[NSArray alloc] init];
    array->_objects = objects;
    return array;
}

@implementation NSDictionary {
@public
    std::vector<id> _keys;
    std::vector<id> _objects;
}
- (NSUInteger)count {
    return _keys.size();
}
- (id)objectForKeyedSubscript:(id)key {
    for (std::size_t index = 0; index < _keys.size(); ++index) {
        if ([(NSString*)_keys[index] isEqualToString:key]) {
            return _objects[index];
        }
    }
    return nil;
}
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained[])buffer
                                    count:(NSUInteger)len {
    return enumerate(_keys, state, buffer, len);
}
@end

NSDictionary* standin::dictionary(const std::vector<std::pair<NSString*, id>>& entries) {
    NSDictionary* dictionary = [[NSDictionary alloc] init];
    for (const auto& [key, object] : entries) {
        dictionary->_keys.push_back(key);
        dictionary->_objects.push_back(object);
    }
    return dictionary;
}
