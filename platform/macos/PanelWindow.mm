#import "platform/macos/PanelWindow.h"

@implementation QuorvantelPanelWindow

- (instancetype)initWithSize:(NSSize)size {
    self = [super initWithContentRect:NSMakeRect(0, 0, size.width, size.height)
                            styleMask:NSWindowStyleMaskNonactivatingPanel
                              backing:NSBackingStoreBuffered
                                defer:NO];
    if (self != nil) {
        self.releasedWhenClosed = NO;
        self.opaque = NO;
        self.backgroundColor = NSColor.clearColor;
        self.hasShadow = YES;
        self.floatingPanel = YES;
        self.level = NSFloatingWindowLevel;
        self.collectionBehavior = NSWindowCollectionBehaviorCanJoinAllSpaces |
                                  NSWindowCollectionBehaviorFullScreenAuxiliary;
        self.hidesOnDeactivate = NO;
        self.becomesKeyOnlyIfNeeded = NO;
        self.acceptsMouseMovedEvents = YES;
        // The launcher drags the panel by itself.
        self.movable = NO;
        self.animationBehavior = NSWindowAnimationBehaviorNone;
    }
    return self;
}

- (BOOL)canBecomeKeyWindow {
    return YES;
}

- (BOOL)canBecomeMainWindow {
    return NO;
}

- (BOOL)performKeyEquivalent:(NSEvent*)event {
    // Left to AppKit, ⌘Q would go to the launcher's menu bar, which nobody sees meanwhile, and end
    // the launcher. The window itself would ask here again.
    if (self.firstResponder == self) {
        return [super performKeyEquivalent:event];
    }
    [self.firstResponder keyDown:event];
    return YES;
}

@end
