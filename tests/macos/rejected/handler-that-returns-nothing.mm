// rejected: cannot initialize a parameter|incompatible block
#import <AppKit/AppKit.h>
id watch() {
    return [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskLeftMouseDown
                                                 handler:^(NSEvent*){
                                                 }];
}
