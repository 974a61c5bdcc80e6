#pragma once

#import <AppKit/AppKit.h>

NS_ASSUME_NONNULL_BEGIN

/// What fills the panel's window: the toolkit's view, and behind it the blurred picture of what is
/// behind the window.
@interface QuorvantelPanelContentView : NSView

/// `outline` is what the blur is cut to: it is stretched, all but its caps, to the size of the
/// view. `onMouseExit` is called each time the mouse leaves the view, whichever application is
/// active.
- (instancetype)initWithToolkitView:(NSView*)toolkitView
                            outline:(NSImage*)outline
                        onMouseExit:(void (^)(void))onMouseExit NS_DESIGNATED_INITIALIZER;
- (instancetype)initWithFrame:(NSRect)frame NS_UNAVAILABLE;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_UNAVAILABLE;

/// Whether what is behind the window is blurred; not at first.
@property(nonatomic, getter=isBlurred) BOOL blurred;

@end

NS_ASSUME_NONNULL_END
