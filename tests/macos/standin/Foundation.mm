#include "Control.h"
#include "Doubles.h"
#include "Private.h"
#include "Runtime.h"

#include <algorithm>
#include <cstring>
#include <utility>

using namespace standin;

@implementation NSObject
+ (instancetype)alloc {
    return standinAllocate(self);
}
- (instancetype)init {
    return self;
}
- (void)dealloc {
    standinFree((__bridge void*)self);
}
- (id)copy {
    return self;
}
+ (Class)class {
    return self;
}
- (BOOL)isKindOfClass:(Class)aClass {
    return standinIsKind(self, aClass);
}
- (NSString*)description {
    return text(QStringLiteral("<%1>").arg(QString::fromLatin1(standinNameOf(standinClassOf(self)))));
}
@end

// What a message to a block finds.
@interface StandinBlock : NSObject
@end
@implementation StandinBlock
- (id)copy {
    return (__bridge_transfer id)_Block_copy((__bridge void*)self);
}
@end

@implementation NSString {
@public
    std::u16string _units;
}
- (std::u16string)units {
    return _units;
}
- (NSUInteger)length {
    return self.units.size();
}
- (void)getCharacters:(unichar*)buffer range:(NSRange)range {
    const std::u16string units = self.units;
    std::copy_n(units.data() + range.location, range.length, buffer);
}
+ (instancetype)stringWithCharacters:(const unichar*)characters length:(NSUInteger)length {
    NSString* string = [[NSString alloc] init];
    string->_units.assign(characters, characters + length);
    return string;
}
- (BOOL)isEqualToString:(NSString*)aString {
    return self.units == aString.units;
}
- (NSString*)description {
    return self;
}
@end

// A literal that is in the pointer itself.
@interface StandinTinyString : NSString
@end
@implementation StandinTinyString
- (std::u16string)units {
    char characters[16];
    const unsigned count = standinTinyCharacters((__bridge void*)self, characters);
    return std::u16string(characters, characters + count);
}
@end

// A literal in the program's data, as clang lays it out.
@interface NSConstantString : NSString
@end
@implementation NSConstantString
- (std::u16string)units {
    struct Literal {
        void* isa;
        std::uint32_t encoding; // 0: ASCII, 2: UTF-16
        std::uint32_t length;
        std::uint32_t size;
        std::uint32_t hash;
        const void* characters;
    };
    const auto* literal = static_cast<const Literal*>((__bridge void*)self);
    if ((literal->encoding & 3) == 2) {
        return std::u16string(static_cast<const char16_t*>(literal->characters), literal->length);
    }
    const auto* characters = static_cast<const char*>(literal->characters);
    return std::u16string(characters, characters + literal->length);
}
@end

NSString* standin::text(const QString& characters) {
    return [NSString stringWithCharacters:reinterpret_cast<const unichar*>(characters.utf16())
                                   length:static_cast<NSUInteger>(characters.size())];
}

QString standin::characters(NSString* text) {
    if (text == nil) {
        return {};
    }
    const std::u16string units = text.units;
    return QString::fromUtf16(units.data(), static_cast<qsizetype>(units.size()));
}

@implementation NSValue {
@public
    NSRange _range;
}
- (const char*)objCType {
    return @encode(NSRange);
}
- (NSRange)rangeValue {
    return _range;
}
@end

NSValue* standin::rangeValue(NSRange range) {
    NSValue* value = [[NSValue alloc] init];
    value->_range = range;
    return value;
}

enum class NumberKind { Boolean, Integer, Real };

@implementation NSNumber {
@public
    NumberKind _kind;
    double _real;
    long long _integer;
}
+ (NSNumber*)numberWithBool:(BOOL)value {
    NSNumber* number = [self numberWithLongLong:value];
    number->_kind = NumberKind::Boolean;
    return number;
}
+ (NSNumber*)numberWithLongLong:(long long)value {
    NSNumber* number = [[NSNumber alloc] init];
    number->_kind = NumberKind::Integer;
    number->_integer = value;
    number->_real = static_cast<double>(value);
    return number;
}
+ (NSNumber*)numberWithDouble:(double)value {
    NSNumber* number = [[NSNumber alloc] init];
    number->_kind = NumberKind::Real;
    number->_real = value;
    number->_integer = static_cast<long long>(value);
    return number;
}
- (const char*)objCType {
    return _kind == NumberKind::Real ? "d" : _kind == NumberKind::Boolean ? "c" : "q";
}
- (BOOL)boolValue {
    return _real != 0;
}
- (long long)longLongValue {
    return _integer;
}
- (double)doubleValue {
    return _real;
}
@end

static NumberKind kindOf(CFTypeRef reference) {
    return ((__bridge NSNumber*)reference)->_kind;
}

CFTypeID CFBooleanGetTypeID() {
    return 21;
}

CFTypeID CFGetTypeID(CFTypeRef cf) {
    return kindOf(cf) == NumberKind::Boolean ? CFBooleanGetTypeID() : 22;
}

Boolean CFNumberIsFloatType(CFNumberRef number) {
    return kindOf(number) == NumberKind::Real;
}

@implementation NSData {
@public
    QByteArray _bytes;
}
+ (instancetype)dataWithBytes:(const void*)bytes length:(NSUInteger)length {
    NSData* data = [[NSData alloc] init];
    data->_bytes = QByteArray(static_cast<const char*>(bytes), static_cast<qsizetype>(length));
    return data;
}
+ (instancetype)dataWithContentsOfFile:(NSString*)path
                               options:(NSDataReadingOptions)readOptionsMask
                                 error:(NSError**)errorPtr {
    if (characters(path).contains(QStringLiteral("forbidden"))) {
        *errorPtr = error(QStringLiteral("it may not be read"));
        return nil;
    }
    return [self dataWithBytes:world().propertyList.constData()
                        length:static_cast<NSUInteger>(world().propertyList.size())];
}
- (const void*)bytes {
    return _bytes.constData();
}
- (NSUInteger)length {
    return static_cast<NSUInteger>(_bytes.size());
}
@end

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

@implementation NSError {
@public
    NSString* _localizedDescription;
}
- (NSString*)localizedDescription {
    return _localizedDescription;
}
@end

NSError* standin::error(const QString& description) {
    NSError* error = [[NSError alloc] init];
    error->_localizedDescription = text(description);
    return error;
}

@implementation NSLocale {
@public
    NSString* _identifier;
}
+ (instancetype)localeWithLocaleIdentifier:(NSString*)ident {
    NSLocale* locale = [super alloc];
    locale->_identifier = ident;
    return locale;
}
- (NSString*)identifier {
    return _identifier;
}
@end

@implementation NSOperationQueue
@synthesize maxConcurrentOperationCount = _maxConcurrentOperationCount;
@end

@implementation NSBundle
+ (NSBundle*)mainBundle {
    return [[NSBundle alloc] init];
}
- (NSString*)bundleIdentifier {
    return world().bundleIdentifier.isNull() ? nil : text(world().bundleIdentifier);
}
@end

@implementation NSProcessInfo
+ (NSProcessInfo*)processInfo {
    return [[NSProcessInfo alloc] init];
}
- (NSString*)processName {
    return @"brivandel";
}
- (void)setProcessName:(NSString*)processName {
}
@end

NSArray<NSString*>* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                        NSSearchPathDomainMask domainMask, BOOL expandTilde) {
    const bool isAsked = directory == NSLibraryDirectory && domainMask == NSUserDomainMask && expandTilde;
    return isAsked ? array({text(world().libraryFolder)}) : array({});
}

@implementation NSFileManager
+ (NSFileManager*)defaultManager {
    return [[NSFileManager alloc] init];
}
- (BOOL)fileExistsAtPath:(NSString*)path {
    return !characters(path).contains(QStringLiteral("missing"));
}
@end

@implementation NSPropertyListSerialization
+ (id)propertyListWithData:(NSData*)data
                   options:(NSPropertyListReadOptions)opt
                    format:(NSPropertyListFormat*)format
                     error:(NSError**)error {
    if (data->_bytes == "dictionary") {
        return dictionary({{@"wakeWord", @"ok computer"}, {@"useWakeWord", [NSNumber numberWithBool:NO]}});
    }
    if (data->_bytes == "array") {
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
            return names[static_cast<int>(static_cast<NSNumber*>(object)->_kind)];
        }
        return object == nil ? QString() : QStringLiteral("foreign");
    }
}

World& standin::world() {
    static World world;
    return world;
}

void standin::reset() {
    world() = World();
    stored().clear();
}

long standin::liveObjects(const char* className) {
    return standinLiveCount(className);
}
