#import "platform/macos/PanelContentView.h"

@implementation QuorvantelPanelContentView {
    NSVisualEffectView* _blur;
    void (^_onMouseExit)(void);
}

- (instancetype)initWithToolkitView:(NSView*)toolkitView
                            outline:(NSImage*)outline
                        onMouseExit:(void (^)(void))onMouseExit {
    self = [super initWithFrame:toolkitView.frame];
    if (self != nil) {
        _onMouseExit = [onMouseExit copy];
        _blur = [[NSVisualEffectView alloc] initWithFrame:self.bounds];
        _blur.material = NSVisualEffectMaterialPopover;
        _blur.blendingMode = NSVisualEffectBlendingModeBehindWindow;
        // The launcher is not the active application while the panel is shown.
        _blur.state = NSVisualEffectStateActive;
        _blur.wantsLayer = YES;
        _blur.maskImage = outline;
        _blur.hidden = YES;
        [self addSubview:_blur];
        [self addSubview:toolkitView];
        // The toolkit tells a window that it is left only where its view fills the native window by
        // itself.
        [self addTrackingArea:[[NSTrackingArea alloc]
                                  initWithRect:NSZeroRect
                                       options:NSTrackingMouseEnteredAndExited |
                                               NSTrackingActiveAlways | NSTrackingInVisibleRect
                                         owner:self
                                      userInfo:nil]];
    }
    return self;
}

- (BOOL)isBlurred {
    return !_blur.hidden;
}

- (void)setBlurred:(BOOL)isBlurred {
    _blur.hidden = !isBlurred;
}

- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
    for (NSView* view in self.subviews) {
        view.frame = self.bounds;
    }
}

- (void)mouseExited:(NSEvent*)event {
    _onMouseExit();
}

@end
