#!/usr/bin/perl
my $sent = $db->selectrow_array('select sent from shipments where order_id = ?', undef, $id);
