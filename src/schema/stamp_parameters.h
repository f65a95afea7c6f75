// Stamps an element of a constructor's argument list for each attribute that is a parameter
// (schema/constructor_args.h). Include the class's list behind it.
#define ZOL_PARAM(attr, Attr, id, Type) ConstructorArg{#attr, typeText<Type>(#Type)},
#define ZOL_PARAM_REFERENCE(attr, Attr, id, Type) ConstructorArg{#attr, typeText<Type>(#Type)},
