#pragma once

#include <QVariant>

#import <Foundation/Foundation.h>

/// Values of property lists as Qt has them. For Objective-C++ alone.
namespace quorvantel::platform {

/// A value as QString, bool, qlonglong, qulonglong, double, QByteArray, QVariantList or
/// QVariantMap; an invalid one for every other type and for nil. Whole numbers are qulonglong only
/// where qlonglong does not hold them.
///
/// A list of lists can be small in its file and huge without the references in it. So what is
/// deeper or has more values than any bundle has reason for is invalid as a whole.
QVariant variantOf(id _Nullable value);

} // namespace quorvantel::platform
