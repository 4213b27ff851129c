#pragma once

// The skeletal runtime's own small JSON reader. A parsed document is a tree of
// Json nodes; every value keeps its string, float and int views so that the
// skeleton reader can ask for whichever it needs.
#define Json_False 0
#define Json_True 1
#define Json_NULL 2
#define Json_Number 3
#define Json_String 4
#define Json_Array 5
#define Json_Object 6

struct Json {
    Json* next;               // next sibling in the parent array or object
    Json* child;              // first member or element
    int type;                 // one of the Json_* codes above
    int size;                 // number of children of an array or object
    const char* valueString;  // text of a string; null otherwise
    int valueInt;
    float valueFloat;
    const char* name;         // member name inside an object; null in arrays
};

// Parses a zero-terminated text. Returns null on malformed input; the reason
// is then available from Json_getError on the same thread.
Json* Json_create(const char* value);
// Same for a text of known length, which need not be zero-terminated.
Json* Json_createWithLength(const char* value, int length);
void Json_dispose(Json* json);

// Member lookup by name, comparing without regard to case.
Json* Json_getItem(Json* object, const char* name);
const char* Json_getString(Json* object, const char* name, const char* defaultValue);
float Json_getFloat(Json* object, const char* name, float defaultValue);
int Json_getInt(Json* object, const char* name, int defaultValue);

// Text of the last parse failure on this thread, empty when there was none.
const char* Json_getError(void);
