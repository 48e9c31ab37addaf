// rejected: no viable conversion|cannot initialize
#import <Foundation/Foundation.h>
#include <QString>
QString name(NSError* error) {
    return error.localizedDescription;
}
