#include "Control.h"
#include "Doubles.h"
#include "Private.h"
#include "Runtime.h"

#include <algorithm>

using namespace standin;

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
