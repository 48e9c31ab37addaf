// What the adapters use of Foundation, written from its public documentation. Each declaration names its page.
// Read a second time, against its pages and the published bindings of others: all but isEqualToString:.
#pragma once
#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>
#include <objc/objc.h>

// How Apple's headers annotate what they declare.
#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
#define NS_UNAVAILABLE __attribute__((unavailable))
#define NS_RETURNS_INNER_POINTER __attribute__((objc_returns_inner_pointer))
#define NS_ENUM(type, name) \
    enum name : type name;  \
    enum name : type
#define NS_OPTIONS(type, name) \
    type name;                 \
    enum : name
#define SINCE_MACOS(version) __attribute__((availability(macos, introduced = version)))
#define DEPRECATED_MACOS(since, until) __attribute__((availability(macos, introduced = since, deprecated = until)))

NS_ASSUME_NONNULL_BEGIN

typedef long NSInteger;           // Foundation: NSInteger (64-bit systems)
typedef unsigned long NSUInteger; // Foundation: NSUInteger (64-bit systems)
typedef unsigned short unichar;   // Foundation: unichar
typedef CGPoint NSPoint;          // Foundation: NSPoint
typedef CGRect NSRect;            // Foundation: NSRect

// Foundation: NSRange
typedef struct _NSRange {
    NSUInteger location;
    NSUInteger length;
} NSRange;
// Foundation: NSMakeRange
static inline NSRange NSMakeRange(NSUInteger loc, NSUInteger len) {
    return {loc, len};
}
// Foundation: NSMouseInRect
extern "C" BOOL NSMouseInRect(NSPoint aPoint, NSRect aRect, BOOL flipped);

@class NSString, NSDictionary<KeyType, ObjectType>, NSError;

// Objective-C Runtime: NSObject (protocol)
@protocol NSObject
@property (readonly, copy) NSString* description; // description
- (BOOL)isKindOfClass:(Class)aClass;              // isKindOfClass:
@end

// Objective-C Runtime: NSObject (class)
__attribute__((objc_root_class))
@interface NSObject <NSObject> {
    Class isa __attribute__((deprecated));
}
+ (instancetype)alloc; // alloc
- (instancetype)init;  // init
- (void)dealloc;       // dealloc
- (id)copy;            // copy
+ (Class)class;        // class
@end

// Foundation: NSCopying
@protocol NSCopying
@end

// Foundation: NSFastEnumerationState
typedef struct {
    unsigned long state;
    id __unsafe_unretained _Nullable* _Nullable itemsPtr;
    unsigned long* _Nullable mutationsPtr;
    unsigned long extra[5];
} NSFastEnumerationState;
// Foundation: NSFastEnumeration
@protocol NSFastEnumeration
// countByEnumeratingWithState:objects:count:
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)len;
@end

// Foundation: NSString
@interface NSString : NSObject <NSCopying>
@property (readonly) NSUInteger length;                                                     // length
- (void)getCharacters:(unichar*)buffer range:(NSRange)range;                                // getCharacters:range:
+ (instancetype)stringWithCharacters:(const unichar*)characters length:(NSUInteger)length;  // stringWithCharacters:length:
- (BOOL)isEqualToString:(NSString*)aString;                                                 // isEqualToString:
@end

// Foundation: NSValue
@interface NSValue : NSObject <NSCopying>
@property (readonly) const char* objCType NS_RETURNS_INNER_POINTER; // objCType
@property (readonly) NSRange rangeValue;                            // rangeValue
@end

// Foundation: NSNumber
@interface NSNumber : NSValue
+ (NSNumber*)numberWithBool:(BOOL)value;          // numberWithBool:
+ (NSNumber*)numberWithLongLong:(long long)value; // numberWithLongLong:
+ (NSNumber*)numberWithDouble:(double)value;      // numberWithDouble:
@property (readonly) BOOL boolValue;              // boolValue
@property (readonly) long long longLongValue;     // longLongValue
@property (readonly) double doubleValue;          // doubleValue
@end

// Foundation: NSDataReadingOptions
typedef NS_OPTIONS(NSUInteger, NSDataReadingOptions) { NSDataReadingMappedIfSafe = 1 << 0 };
// Foundation: NSData
@interface NSData : NSObject <NSCopying>
@property (readonly) NSUInteger length;                                                   // length
@property (readonly) const void* bytes NS_RETURNS_INNER_POINTER;                          // bytes
+ (instancetype)dataWithBytes:(nullable const void*)bytes length:(NSUInteger)length;      // dataWithBytes:length:
// dataWithContentsOfFile:options:error:
+ (nullable instancetype)dataWithContentsOfFile:(NSString*)path
                                        options:(NSDataReadingOptions)readOptionsMask
                                          error:(NSError* _Nullable __autoreleasing* _Nullable)errorPtr;
@end

// Foundation: NSArray
@interface NSArray<__covariant ObjectType> : NSObject <NSFastEnumeration>
@property (readonly) NSUInteger count;                                                                       // count
@property (nullable, nonatomic, readonly) ObjectType firstObject;                                            // firstObject
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull[_Nonnull])objects count:(NSUInteger)cnt;         // arrayWithObjects:count:
@end

// Foundation: NSDictionary
@interface NSDictionary<__covariant KeyType, __covariant ObjectType> : NSObject <NSFastEnumeration>
@property (readonly) NSUInteger count;                          // count
- (nullable ObjectType)objectForKeyedSubscript:(KeyType)key;    // objectForKeyedSubscript:
@end

// Foundation: NSError
@interface NSError : NSObject
@property (readonly, copy) NSString* localizedDescription; // localizedDescription
@end

typedef NSString* NSExceptionName; // Foundation: NSExceptionName
// Foundation: NSException
__attribute__((objc_exception))
@interface NSException : NSObject
@property (readonly, copy) NSExceptionName name;       // name
@property (nullable, readonly, copy) NSString* reason; // reason
@end

// Foundation: NSLocale
@interface NSLocale : NSObject
+ (instancetype)localeWithLocaleIdentifier:(NSString*)ident; // localeWithLocaleIdentifier:
- (instancetype)init NS_UNAVAILABLE;
@end

// Foundation: NSBundle
@interface NSBundle : NSObject
@property (class, readonly, strong) NSBundle* mainBundle;        // mainBundle
@property (nullable, readonly, copy) NSString* bundleIdentifier; // bundleIdentifier
@end

// Foundation: NSActivityOptions
typedef NS_OPTIONS(uint64_t, NSActivityOptions) {
    NSActivityIdleSystemSleepDisabled = 1ULL << 20,
    NSActivityUserInitiated = 0x00FFFFFFULL | NSActivityIdleSystemSleepDisabled,
    NSActivityUserInitiatedAllowingIdleSystemSleep = NSActivityUserInitiated & ~NSActivityIdleSystemSleepDisabled,
};
// Foundation: NSProcessInfo
@interface NSProcessInfo : NSObject
@property (class, readonly, strong) NSProcessInfo* processInfo;                                      // processInfo
@property (copy) NSString* processName;                                                              // processName
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason;        // beginActivityWithOptions:reason:
- (void)endActivity:(id<NSObject>)activity;                                                          // endActivity:
@end

// Foundation: NSOperationQueue
@interface NSOperationQueue : NSObject
@property NSInteger maxConcurrentOperationCount; // maxConcurrentOperationCount
@end

typedef NSString* NSNotificationName; // Foundation: NSNotificationName
// Foundation: NSNotification
@interface NSNotification : NSObject <NSCopying>
@end
// Foundation: NSNotificationCenter
@interface NSNotificationCenter : NSObject
@property (class, readonly, strong) NSNotificationCenter* defaultCenter; // defaultCenter
// addObserverForName:object:queue:usingBlock:
- (id<NSObject>)addObserverForName:(nullable NSNotificationName)name
                            object:(nullable id)obj
                             queue:(nullable NSOperationQueue*)queue
                        usingBlock:(void (^)(NSNotification* notification))block;
- (void)removeObserver:(id)observer; // removeObserver:
@end

typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) { NSLibraryDirectory = 5 };       // Foundation: NSSearchPathDirectory
typedef NS_OPTIONS(NSUInteger, NSSearchPathDomainMask) { NSUserDomainMask = 1 };     // Foundation: NSSearchPathDomainMask
// Foundation: NSSearchPathForDirectoriesInDomains
extern "C" NSArray<NSString*>* NSSearchPathForDirectoriesInDomains(NSSearchPathDirectory directory,
                                                                   NSSearchPathDomainMask domainMask, BOOL expandTilde);

// Foundation: NSFileManager
@interface NSFileManager : NSObject
@property (class, readonly, strong) NSFileManager* defaultManager; // defaultManager
- (BOOL)fileExistsAtPath:(NSString*)path;                          // fileExistsAtPath:
@end

// Foundation: NSPropertyListMutabilityOptions
typedef NS_OPTIONS(NSUInteger, NSPropertyListMutabilityOptions) { NSPropertyListImmutable = 0 };
typedef NSPropertyListMutabilityOptions NSPropertyListReadOptions; // Foundation: NSPropertyListReadOptions
// Foundation: NSPropertyListFormat
typedef NS_ENUM(NSUInteger, NSPropertyListFormat) {
    NSPropertyListOpenStepFormat = 1,
    NSPropertyListXMLFormat_v1_0 = 100,
    NSPropertyListBinaryFormat_v1_0 = 200,
};
// Foundation: NSPropertyListSerialization
@interface NSPropertyListSerialization : NSObject
// propertyListWithData:options:format:error:
+ (nullable id)propertyListWithData:(NSData*)data
                            options:(NSPropertyListReadOptions)opt
                             format:(nullable NSPropertyListFormat*)format
                              error:(NSError* _Nullable __autoreleasing* _Nullable)error;
@end

// Foundation: NSUserDefaults
@interface NSUserDefaults : NSObject
@property (class, readonly, strong) NSUserDefaults* standardUserDefaults;                       // standardUserDefaults
- (nullable id)objectForKey:(NSString*)defaultName;                                             // objectForKey:
- (void)setObject:(nullable id)value forKey:(NSString*)defaultName;                             // setObject:forKey:
- (void)removeObjectForKey:(NSString*)defaultName;                                              // removeObjectForKey:
- (nullable NSDictionary<NSString*, id>*)persistentDomainForName:(NSString*)domainName;         // persistentDomainForName:
- (BOOL)synchronize;                                                                            // synchronize
@end

@class NSAppleEventDescriptor; // Foundation: NSAppleEventDescriptor
// Foundation: NSAppleScript
@interface NSAppleScript : NSObject
- (nullable instancetype)initWithSource:(NSString*)source NS_DESIGNATED_INITIALIZER; // initWithSource:
- (instancetype)init NS_UNAVAILABLE;
// executeAndReturnError:
- (NSAppleEventDescriptor*)executeAndReturnError:
    (NSDictionary<NSString*, id>* _Nullable __autoreleasing* _Nullable)errorInfo;
@end

typedef NSString* NSKeyValueChangeKey; // Foundation: NSKeyValueChangeKey
// Foundation: NSKeyValueObservingOptions
typedef NS_OPTIONS(NSUInteger, NSKeyValueObservingOptions) { NSKeyValueObservingOptionNew = 0x01 };
// Foundation: NSKeyValueObserving
@interface NSObject (NSKeyValueObserving)
// observeValueForKeyPath:ofObject:change:context:
- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context;
// addObserver:forKeyPath:options:context:
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(nullable void*)context;
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath; // removeObserver:forKeyPath:
@end

NS_ASSUME_NONNULL_END
