// Stamps the enumerators of an enumeration. Include its list behind it.
#define ZOL_ENUMERATOR(name, number) name = number,
