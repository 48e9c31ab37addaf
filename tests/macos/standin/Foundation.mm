#include "Control.h"
#include "Doubles.h"
#include "Private.h"
#include "Runtime.h"

#include <vector>

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

@interface StandinActivity : NSObject
@end
@implementation StandinActivity {
@public
    std::uint64_t _options;
}
@end

static std::vector<StandinActivity*>& activities() {
    static std::vector<StandinActivity*> activities;
    return activities;
}

std::uint64_t standin::activity() {
    std::uint64_t options = 0;
    for (const StandinActivity* each : activities()) {
        options |= each->_options;
    }
    return options;
}

@implementation NSProcessInfo
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason {
    StandinActivity* activity = [[StandinActivity alloc] init];
    activity->_options = options;
    activities().push_back(activity);
    return activity;
}
- (void)endActivity:(id<NSObject>)activity {
    std::erase(activities(), activity);
}
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

World& standin::world() {
    static World world;
    return world;
}

void standin::reset() {
    world() = World();
    forgetStoredObjects();
}

long standin::liveObjects(const char* className) {
    return standinLiveCount(className);
}
