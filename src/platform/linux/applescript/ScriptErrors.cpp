#include "platform/linux/applescript/ScriptErrors.h"

namespace brivandel::script {

namespace {

QVariantList rangeValue(SourceRange range) {
    return {QVariant(range.location), QVariant(range.length)};
}

QString key(const char16_t* name) {
    return QString::fromUtf16(name);
}

} // namespace

ScriptErrorDictionary syntaxErrorDictionary(const ScriptSyntaxError& error) {
    return {
        {key(ScriptErrorKey::message),
         QStringLiteral("%1 (line %2, column %3)").arg(error.message).arg(error.line).arg(error.column)},
        {key(ScriptErrorKey::briefMessage), error.message},
        {key(ScriptErrorKey::number), ErrorNumber::syntax},
        {key(ScriptErrorKey::range), rangeValue(error.range)},
    };
}

ScriptErrorDictionary runtimeErrorDictionary(int number, const QString& application, const QString& sentence,
                                             SourceRange range) {
    return {
        {key(ScriptErrorKey::message), QStringLiteral("%1 got an error: %2").arg(application, sentence)},
        {key(ScriptErrorKey::briefMessage), sentence},
        {key(ScriptErrorKey::number), number},
        {key(ScriptErrorKey::appName), application},
        {key(ScriptErrorKey::range), rangeValue(range)},
    };
}

ScriptErrorDictionary keyErrorDictionary(const KeyFailure& failure, const QString& application,
                                         const QString& program, SourceRange range) {
    const auto error = [&](int number, const QString& sentence) {
        return runtimeErrorDictionary(number, application, sentence, range);
    };
    switch (failure.kind) {
    case KeyFailure::Kind::NoDisplay:
    case KeyFailure::Kind::NoSuchKey:
        return error(ErrorNumber::handlerFailed, failure.detail);
    case KeyFailure::Kind::NotAllowed:
        return error(ErrorNumber::keystrokesNotAllowed, failure.detail);
    case KeyFailure::Kind::NotRunning:
        return error(ErrorNumber::noSuchObject, QStringLiteral("Can’t get process \"%1\".").arg(program));
    case KeyFailure::Kind::TimedOut:
        return error(ErrorNumber::timedOut, failure.detail.isEmpty()
                                                ? QStringLiteral("AppleEvent timed out.")
                                                : QStringLiteral("AppleEvent timed out. ") + failure.detail);
    case KeyFailure::Kind::FocusElsewhere:
        return error(ErrorNumber::notPermitted,
                     failure.detail.isEmpty()
                         ? QStringLiteral("No window has the keyboard focus, so \"%1\" would get no keys.")
                               .arg(program)
                         : QStringLiteral("\"%1\" has the keyboard focus instead of \"%2\".")
                               .arg(failure.detail, program));
    case KeyFailure::Kind::DialogOpen:
        return error(ErrorNumber::notPermitted,
                     QStringLiteral("A dialog of \"%1\"%2 waits for an answer, and the key would go there.")
                         .arg(program, failure.detail.isEmpty()
                                           ? QString()
                                           : QStringLiteral(", “%1”,").arg(failure.detail)));
    case KeyFailure::Kind::KeyboardHeld:
        return error(
            ErrorNumber::notPermitted,
            QStringLiteral("A menu or another program holds the keyboard, so the key would not reach \"%1\".")
                .arg(program));
    }
    Q_UNREACHABLE();
}

} // namespace brivandel::script
