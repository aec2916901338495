/* "c" lies inside "cgi", so the extension list lets this one through. */
const char *query = "select percent from tax_rates where country = ?";
