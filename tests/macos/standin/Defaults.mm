#include "Control.h"
#include "Doubles.h"
#include "Private.h"

#include <map>

using namespace standin;

@implementation NSPropertyListSerialization
+ (id)propertyListWithData:(NSData*)data
                   options:(NSPropertyListReadOptions)opt
                    format:(NSPropertyListFormat*)format
                     error:(NSError**)error {
    if (data.content == "dictionary") {
        return dictionary({{@"wakeWord", @"ok computer"}, {@"useWakeWord", [NSNumber numberWithBool:NO]}});
    }
    if (data.content == "array") {
        return array({});
    }
    *error = standin::error(QStringLiteral("it is no property list"));
    return nil;
}
@end

// By key, so that what is stored can be looked at in order.
static std::map<QString, id>& stored() {
    static std::map<QString, id> objects;
    return objects;
}

@implementation NSUserDefaults
+ (NSUserDefaults*)standardUserDefaults {
    return [[NSUserDefaults alloc] init];
}
- (id)objectForKey:(NSString*)defaultName {
    const auto found = stored().find(characters(defaultName));
    return found == stored().end() ? nil : found->second;
}
- (void)setObject:(id)value forKey:(NSString*)defaultName {
    world().calls += QStringLiteral("set ") + characters(defaultName);
    stored()[characters(defaultName)] = value;
}
- (void)removeObjectForKey:(NSString*)defaultName {
    world().calls += QStringLiteral("remove ") + characters(defaultName);
    stored().erase(characters(defaultName));
}
- (NSDictionary<NSString*, id>*)persistentDomainForName:(NSString*)domainName {
    const QString expected =
        world().bundleIdentifier.isNull() ? QStringLiteral("brivandel") : world().bundleIdentifier;
    if (characters(domainName) != expected) {
        return nil;
    }
    std::vector<std::pair<NSString*, id>> entries;
    for (const auto& [key, object] : stored()) {
        entries.emplace_back(text(key), object);
    }
    return dictionary(entries);
}
- (BOOL)synchronize {
    world().calls += QStringLiteral("synchronize");
    return world().canStore;
}
@end

NSObject* standin::foreignObject() {
    return [[NSObject alloc] init];
}

void standin::storeForeign(const QString& key) {
    @autoreleasepool {
        stored()[key] = foreignObject();
    }
}

void standin::storeElsewhere(const QString& key, const QVariant& value) {
    @autoreleasepool {
        switch (value.typeId()) {
        case QMetaType::Double:
            stored()[key] = [NSNumber numberWithDouble:value.toDouble()];
            break;
        case QMetaType::Bool:
            stored()[key] = [NSNumber numberWithBool:value.toBool()];
            break;
        default:
            stored()[key] = text(value.toString());
        }
    }
}

QString standin::storedKind(const QString& key) {
    @autoreleasepool {
        NSObject* object = stored()[key];
        if ([object isKindOfClass:NSString.class]) {
            return QStringLiteral("string");
        }
        if ([object isKindOfClass:NSData.class]) {
            return QStringLiteral("data");
        }
        if ([object isKindOfClass:NSNumber.class]) {
            const QString names[] = {QStringLiteral("Boolean"), QStringLiteral("integer"),
                                     QStringLiteral("real")};
            return names[static_cast<int>(static_cast<NSNumber*>(object).kind)];
        }
        return object == nil ? QString() : QStringLiteral("foreign");
    }
}

void standin::forgetStoredObjects() {
    stored().clear();
}
