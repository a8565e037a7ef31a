// SPDX-FileCopyrightText: Lexivore contributors
// SPDX-License-Identifier: MIT
#include "services/updates/version.h"

namespace lexivore {

namespace {

bool isDigit(QChar character) { return character >= u'0' && character <= u'9'; }

/// Takes the next run of digits or of letters off the front. Empty at the end.
QStringView takePart(QStringView &version) {
    qsizetype start = 0;
    while (start < version.size() && !version[start].isLetterOrNumber()) {
        ++start;
    }
    qsizetype end = start;
    while (end < version.size() && version[end].isLetterOrNumber() &&
           isDigit(version[end]) == isDigit(version[start])) {
        ++end;
    }
    const QStringView part = version.sliced(start, end - start);
    version = version.sliced(end);
    return part;
}

std::weak_ordering ordering(qsizetype left, qsizetype right) { return left <=> right; }

QStringView withoutLeadingZeros(QStringView digits) {
    while (digits.startsWith(u'0')) {
        digits = digits.sliced(1);
    }
    return digits;
}

/// Either may be empty, which is the number zero.
std::weak_ordering compareNumbers(QStringView left, QStringView right) {
    left = withoutLeadingZeros(left);
    right = withoutLeadingZeros(right);
    const std::weak_ordering bySize = ordering(left.size(), right.size());
    return bySize != 0 ? bySize : ordering(left.compare(right), 0);
}

std::weak_ordering compareParts(QStringView left, QStringView right) {
    const bool leftIsNumber = left.isEmpty() || isDigit(left.front());
    const bool rightIsNumber = right.isEmpty() || isDigit(right.front());
    if (leftIsNumber != rightIsNumber) {
        return leftIsNumber ? std::weak_ordering::greater : std::weak_ordering::less;
    }
    return leftIsNumber ? compareNumbers(left, right) : ordering(left.compare(right, Qt::CaseInsensitive), 0);
}

QStringView withoutBuild(QStringView version) { return version.left(version.indexOf(u'+')); }

} // namespace

std::weak_ordering compareVersions(QStringView left, QStringView right) {
    left = withoutBuild(left);
    right = withoutBuild(right);
    while (!left.isEmpty() || !right.isEmpty()) {
        const QStringView leftPart = takePart(left);
        const std::weak_ordering result = compareParts(leftPart, takePart(right));
        if (result != 0) {
            return result;
        }
    }
    return std::weak_ordering::equivalent;
}

} // namespace lexivore
