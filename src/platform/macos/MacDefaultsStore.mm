#include "platform/PlatformFactory.h"
#include "platform/macos/FoundationText.h"
#include "platform/macos/MacBundle.h"
#include "platform/macos/MacServices.h"

#import <CoreFoundation/CoreFoundation.h>
#import <Foundation/Foundation.h>

namespace brivandel {

namespace {

QVariant numberVariant(NSNumber* number) {
    CFNumberRef reference = (__bridge CFNumberRef)number;
    // A Boolean is a number like any other, but for its type.
    if (CFGetTypeID(reference) == CFBooleanGetTypeID()) {
        return static_cast<bool>(number.boolValue);
    }
    if (CFNumberIsFloatType(reference) != 0) {
        return number.doubleValue;
    }
    return qlonglong{number.longLongValue};
}

// Invalid for nil.
QVariant variantOf(NSObject* _Nullable object) {
    if (object == nil) {
        return {};
    }
    if ([object isKindOfClass:NSString.class]) {
        return fromNSString(static_cast<NSString*>(object));
    }
    if ([object isKindOfClass:NSNumber.class]) {
        return numberVariant(static_cast<NSNumber*>(object));
    }
    if ([object isKindOfClass:NSData.class]) {
        auto* data = static_cast<NSData*>(object);
        return QByteArray(static_cast<const char*>(data.bytes), static_cast<qsizetype>(data.length));
    }
    return QVariant::fromValue(ForeignObject());
}

QVariantMap variantMap(NSDictionary<NSString*, id>* _Nullable dictionary) {
    QVariantMap objects;
    for (NSString* key in dictionary) {
        NSObject* object = dictionary[key];
        objects.insert(fromNSString(key), variantOf(object));
    }
    return objects;
}

// nil for what is of no type that is stored.
id _Nullable objectOf(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::Bool:
        return [NSNumber numberWithBool:value.toBool()];
    case QMetaType::LongLong:
        return [NSNumber numberWithLongLong:value.toLongLong()];
    case QMetaType::Double:
        return [NSNumber numberWithDouble:value.toDouble()];
    case QMetaType::QString:
        return toNSString(value.toString());
    case QMetaType::QByteArray: {
        const QByteArray bytes = value.toByteArray();
        return [NSData dataWithBytes:bytes.constData() length:static_cast<NSUInteger>(bytes.size())];
    }
    default:
        return nil;
    }
}

// Under which name the system keeps this program's defaults.
NSString* domainName() {
    NSString* identifier = NSBundle.mainBundle.bundleIdentifier;
    return identifier != nil ? identifier : NSProcessInfo.processInfo.processName;
}

QVariantMap storedObjects() {
    return variantMap([NSUserDefaults.standardUserDefaults persistentDomainForName:domainName()]);
}

class MacDefaultsStore final : public DefaultsStore {
public:
    explicit MacDefaultsStore(DiagnosticLog& log) : log_(log) {}

    [[nodiscard]] QVariant object(const QString& key) const override {
        @autoreleasepool {
            return variantOf([NSUserDefaults.standardUserDefaults objectForKey:toNSString(key)]);
        }
    }

    [[nodiscard]] QVariantMap objects() const override {
        @autoreleasepool {
            return storedObjects();
        }
    }

    void set(const QString& key, const QVariant& value) override {
        @autoreleasepool {
            id object = objectOf(value);
            if (object == nil) {
                log_.write(QStringLiteral("Setting \"%1\" is of a type that cannot be stored: %2")
                               .arg(key, QString::fromLatin1(value.typeName())));
                return;
            }
            [NSUserDefaults.standardUserDefaults setObject:object forKey:toNSString(key)];
            writeDown();
        }
    }

    void remove(const QString& key) override {
        @autoreleasepool {
            [NSUserDefaults.standardUserDefaults removeObjectForKey:toNSString(key)];
            writeDown();
        }
    }

private:
    // The system hands on what was set when it finds the time, unless it is waited for.
    void writeDown() {
        if (![NSUserDefaults.standardUserDefaults synchronize]) {
            log_.write(QStringLiteral("The settings could not be written"));
        }
    }

    DiagnosticLog& log_;
};

} // namespace

std::unique_ptr<DefaultsStore> makeMacDefaultsStore(DiagnosticLog& log) {
    return std::make_unique<MacDefaultsStore>(log);
}

QString userDefaultsPath() {
    @autoreleasepool {
        return userLibraryFolder() + QStringLiteral("/Preferences/") + fromNSString(domainName()) +
               QStringLiteral(".plist");
    }
}

std::variant<QVariantMap, QString> readDefaultsFile(const QString& path) {
    @autoreleasepool {
        // The file of the user's own defaults lags behind what the system knows of them.
        if (path == userDefaultsPath()) {
            return storedObjects();
        }
        if (![NSFileManager.defaultManager fileExistsAtPath:toNSString(path)]) {
            return QVariantMap();
        }
        NSError* error = nil;
        NSData* data = [NSData dataWithContentsOfFile:toNSString(path) options:0 error:&error];
        if (data == nil) {
            return fromNSString(error.localizedDescription);
        }
        NSObject* list = [NSPropertyListSerialization propertyListWithData:data
                                                                   options:NSPropertyListImmutable
                                                                    format:nullptr
                                                                     error:&error];
        if (list == nil) {
            return fromNSString(error.localizedDescription);
        }
        if (![list isKindOfClass:NSDictionary.class]) {
            return QStringLiteral("it is a property list, but no dictionary");
        }
        return variantMap(static_cast<NSDictionary<NSString*, id>*>(list));
    }
}

} // namespace brivandel
