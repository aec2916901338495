package shop;

final class StockReport {
    private static final String TABLE = "STOCK_LEVELS";
    // customers' addresses are printed on the label: see customer_addresses
    private final String label = "street, city";
}
