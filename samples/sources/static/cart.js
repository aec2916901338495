// Written on another system: its lines end in CR and LF.
const url = '/api/fetchOrder_ItemsList';
const paid = rows.filter(r => r.table === 'payments');
