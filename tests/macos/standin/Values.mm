#include "Control.h"
#include "Doubles.h"
#include "Private.h"

using namespace standin;

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
- (NumberKind)kind {
    return _kind;
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
    return [(__bridge NSNumber*)reference kind];
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
- (QByteArray)content {
    return _bytes;
}
- (const void*)bytes {
    return _bytes.constData();
}
- (NSUInteger)length {
    return static_cast<NSUInteger>(_bytes.size());
}
@end
