#pragma once

#import <AppKit/AppKit.h>

NS_ASSUME_NONNULL_BEGIN

/// The window of the launcher's panel: floats above the windows of all applications, on whatever
/// space the user is on, over full-screen applications as well, and takes typing without making the
/// launcher the active application. All keys are its first responder's, those with Command too.
///
/// A panel is non-activating to the window server only if it was created so. That is why the window
/// is one of the launcher's own rather than the toolkit's, which chooses the style of its windows
/// by itself.
@interface QuorvantelPanelWindow : NSPanel

/// Hidden at first.
- (instancetype)initWithSize:(NSSize)size NS_DESIGNATED_INITIALIZER;
- (instancetype)initWithContentRect:(NSRect)contentRect
                          styleMask:(NSWindowStyleMask)style
                            backing:(NSBackingStoreType)backing
                              defer:(BOOL)isDeferred NS_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
