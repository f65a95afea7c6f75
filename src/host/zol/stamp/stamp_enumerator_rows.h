// Stamps the rows of an enumeration's table (host/zol/enumeration.h). Include its list behind it.
#define ZOL_ENUMERATOR(name, number) {#name, number},
