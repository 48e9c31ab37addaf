// What the adapters use of Dispatch, written from its public documentation. Each declaration names its page.
#pragma once

@class NSObject;
@protocol OS_dispatch_queue;                            // Dispatch: OS_dispatch_queue
typedef NSObject<OS_dispatch_queue>* dispatch_queue_t;  // Dispatch: dispatch_queue_t
